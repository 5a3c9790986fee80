// The writer thread: which reports reach the device, which are dropped, and the lines of a failure.
#include <atomic>
#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using simulator::WriteBehaviour;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr char kPrefix[] = "ERROR WriteOutputReportInternal: ";

class ReportWriterTest : public TouchpadTest {
 protected:
    std::vector<std::string> Failures() { return LogOf("WriteOutputReportInternal"); }
};

TEST_F(ReportWriterTest, WritesTheSameReportOnce) {
    OpenAndLight();
    session_.SetButtonLight(vela::BUTTON_ID_SHARE_SCREEN, true);  // one light: same report
    session_.SetButtonLight(vela::BUTTON_ID_SHARE_SCREEN, false);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    const Bytes camera = OutputNumber(1);
    EXPECT_EQ(camera[1], 3);  // 0x20
    Settle();
    EXPECT_EQ(machine_.CountCalls("WriteFile"), 2U);  // the camera's and Settle's own
}

TEST_F(ReportWriterTest, AlwaysWritesAForcedReport) {
    OpenAndLight();
    session_.SetButtonBreathing(9, false);
    session_.SetButtonBreathing(9, false);
    const Bytes first = OutputNumber(1);
    EXPECT_EQ(OutputNumber(2), first);
}

TEST_F(ReportWriterTest, DoesNotRememberAForcedReportAsTheLastOne) {
    OpenAndLight();
    // The request is forced, so the light report before it is still the last one.
    ASSERT_TRUE(session_.UpdateVelaState());
    EXPECT_EQ(OutputNumber(1), RequestReport());
    device_->ForgetOutputs();
    session_.SetButtonLight(vela::BUTTON_ID_SHARE_SCREEN, true);
    Settle();
    EXPECT_THAT(machine_.CallTexts({"WriteFile"}), SizeIs(2));
}

TEST_F(ReportWriterTest, WritesInTheOrderOfQueueing) {
    OpenAndLight();
    session_.SetBrightness(1);
    session_.SetBrightness(2);
    session_.SetBrightness(3);
    EXPECT_EQ(OutputNumber(1), AllLitAt(1));
    EXPECT_EQ(OutputNumber(2), AllLitAt(2));
    EXPECT_EQ(OutputNumber(3), AllLit());
}

TEST_F(ReportWriterTest, WaitsThirtySecondsAtMostForAPendingWrite) {
    OpenAndLight();
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    Settle();
    EXPECT_THAT(
        machine_.CallTexts({"WaitForSingleObject"}),
        testing::Contains(testing::MatchesRegex("WaitForSingleObject\\(event#[0-9]+, 30000\\)")));
}

TEST_F(ReportWriterTest, TakesAWriteThatCompletesWithinTheCall) {
    OpenAndLight();
    device_->SetWriteBehaviour(WriteBehaviour::Immediate);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    Settle();
    session_.SetButtonLight(vela::BUTTON_ID_SHARE_SCREEN, true);
    Settle();
    EXPECT_EQ(machine_.CountCalls("WriteFile"), 3U);
    session_.Uninitialize();
    EXPECT_THAT(Failures(), IsEmpty());
}

TEST_F(ReportWriterTest, AReportWhoseWriteFailedIsNotSuppressedNextTime) {
    OpenAndLight();
    machine_.FailNext("WriteFile", Fault::Error(5));
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    ASSERT_TRUE(machine_.WaitForCalls("WriteFile", 1));
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    EXPECT_EQ(OutputNumber(1)[1], 3);
    session_.Uninitialize();
    EXPECT_THAT(Failures(),
                ElementsAre(std::string(kPrefix) + "Write File failed with last error (5)"));
}

TEST_F(ReportWriterTest, LogsAFailedResultOfAWrite) {
    OpenAndLight();
    device_->FailNextWriteLate(31);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    ASSERT_TRUE(machine_.WaitForCalls("GetOverlappedResult", 1));
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    EXPECT_EQ(OutputNumber(1)[1], 3);
    session_.Uninitialize();
    EXPECT_THAT(
        Failures(),
        ElementsAre(std::string(kPrefix) + "GetOverlappedResult failed, the last error (31)",
                    std::string(kPrefix) + "Write File failed with last error (31)"));
}

TEST_F(ReportWriterTest, LogsAFailedWait) {
    OpenAndLight();
    // The reader waits with the same function, so it must be waiting already.
    ASSERT_TRUE(device_->WaitForPendingReads());
    ASSERT_TRUE(log_.WaitForLine("UpdateVelaState."));
    machine_.FailNext("WaitForSingleObject", Fault::Result(0xFFFFFFFF, 6));
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    ASSERT_TRUE(log_.WaitForLine("Write File failed"));
    session_.Uninitialize();
    EXPECT_THAT(
        Failures(),
        ElementsAre(std::string(kPrefix) + "WaitForSingleObject dwRet = -1, the last error(6)",
                    std::string(kPrefix) + "Write File failed with last error (6)"));
}

TEST_F(ReportWriterTest, GivesUpAWriteThatStaysPendingAndNeitherCancelsNorSuppressesIt) {
    OpenAndLight();
    machine_.ExpireTimedWaits(true);
    device_->SetWriteBehaviour(WriteBehaviour::Hold);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    ASSERT_TRUE(log_.WaitForLine("Write File failed"));
    EXPECT_EQ(device_->HeldWrites(), 1U);
    machine_.ExpireTimedWaits(false);
    device_->SetWriteBehaviour(WriteBehaviour::Pend);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    EXPECT_EQ(OutputNumber(1)[1], 3);
    // The late write still arrives, as its record still exists.
    device_->CompleteHeldWrites();
    EXPECT_EQ(OutputNumber(2)[1], 3);
    session_.Uninitialize();
    EXPECT_THAT(Failures(),
                ElementsAre(std::string(kPrefix) + "WaitForSingleObject timeout",
                            std::string(kPrefix) + "Write File failed with last error (997)"));
}

TEST_F(ReportWriterTest, AWriteGivenUpMayEndWhenTheSessionCloses) {
    OpenAndLight();
    machine_.ExpireTimedWaits(true);
    device_->SetWriteBehaviour(WriteBehaviour::Hold);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    ASSERT_TRUE(log_.WaitForLine("Write File failed"));
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(device_->HeldWrites(), 0U);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(ReportWriterTest, ProducersWaitForTheWriteInFlight) {
    OpenAndLight();
    device_->SetWriteBehaviour(WriteBehaviour::Hold);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    ASSERT_TRUE(device_->WaitForHeldWrites());
    std::atomic<bool> returned{false};
    std::thread producer([&] {
        session_.SetButtonLight(vela::BUTTON_ID_AUDIO, true);
        returned = true;
    });
    // The second light is set and its report composed before the caller has to wait.
    ASSERT_TRUE(log_.WaitForLine("SetButtonLight for BUTTON_ID 1 (1)"));
    EXPECT_FALSE(returned);
    EXPECT_EQ(device_->HeldWrites(), 1U);
    device_->SetWriteBehaviour(WriteBehaviour::Pend);
    device_->CompleteHeldWrites();
    producer.join();
    EXPECT_TRUE(returned);
    EXPECT_EQ(OutputNumber(2)[6 - 1], 3);  // 0x26
}

TEST_F(ReportWriterTest, WritesNothingToADetachableTouchpadThatIsNotThere) {
    OpenAndLight(DetachableLayout());
    machine_.FailAlways("HidD_GetPreparsedData", Fault::Error(1167));
    // Light updates check the connection first; a state request does not, so it reaches the writer.
    ASSERT_TRUE(session_.UpdateVelaState());
    ASSERT_TRUE(machine_.WaitForCalls("HidD_GetPreparsedData", 1));
    session_.Uninitialize();
    EXPECT_EQ(machine_.CountCalls("WriteFile"), 0U);
    EXPECT_THAT(Failures(), IsEmpty());
}

TEST_F(ReportWriterTest, AnUnpluggedTouchpadCostsOneLineAReport) {
    OpenAndLight();
    device_->Unplug();
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    ASSERT_TRUE(log_.WaitForLine("Write File failed"));
    EXPECT_EQ(machine_.CountCalls("WriteFile"), 1U);
}

}  // namespace
}  // namespace kit
