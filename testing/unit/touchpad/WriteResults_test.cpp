// What the writer returns for a report, and which platform calls it takes.
#include <chrono>
#include <optional>
#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using simulator::WriteBehaviour;
using testing::ElementsAre;
using testing::IsEmpty;

// Tests the writer without a session. Its thread is not started.
class WriteResultsTest : public TouchpadTest {
 protected:
    ~WriteResultsTest() override {
        machine_.SetFaultPolicy(nullptr);
        open_.reset();
        touchpad_.Close();
    }

    void OpenWriter(const TouchpadLayout& layout = {}) {
        Plug(layout);
        ASSERT_EQ(touchpad_.Open(vela::ScanHIDInformation(&session_)), vela::kHidOpen);
        touchpad_.SetInitialized(true);
        open_ = touchpad_.Current();
        ASSERT_TRUE(writer_.Prepare());
        machine_.ForgetCalls();
    }
    bool Write(const Bytes& report, bool force = false) {
        return writer_.WriteOutputReportInternal(*open_, report, force);
    }
    std::vector<std::string> Failures() { return LogOf("WriteOutputReportInternal"); }

    vela::TouchpadDevice touchpad_;
    vela::ReportWriter writer_{touchpad_};
    std::shared_ptr<vela::OpenTouchpad> open_;
};

TEST_F(WriteResultsTest, AReportEqualToTheLastOneCountsAsWritten) {
    OpenWriter();
    EXPECT_TRUE(Write(AllLit()));
    EXPECT_TRUE(Write(AllLit()));
    EXPECT_THAT(device_->Outputs(), ElementsAre(AllLit()));
}

TEST_F(WriteResultsTest, PreparingASessionForgetsTheLastReport) {
    OpenWriter();
    EXPECT_TRUE(Write(AllLit()));
    ASSERT_TRUE(writer_.Prepare());
    EXPECT_THAT(writer_.LastReport(), IsEmpty());
    EXPECT_TRUE(Write(AllLit()));
    EXPECT_THAT(device_->Outputs(), ElementsAre(AllLit(), AllLit()));
}

TEST_F(WriteResultsTest, NothingIsWrittenToAClosedTouchpadNotEvenTheLastReport) {
    OpenWriter();
    EXPECT_TRUE(Write(AllLit()));
    touchpad_.Close();
    EXPECT_FALSE(Write(AllLit()));
}

TEST_F(WriteResultsTest, NothingIsWrittenToADetachableTouchpadThatIsNotThere) {
    OpenWriter(DetachableLayout());
    machine_.FailAlways("HidD_GetPreparsedData", Fault::Error(1167));
    EXPECT_FALSE(Write(AllLit()));
    EXPECT_FALSE(Write(AllLit(), true));
    EXPECT_THAT(Failures(), IsEmpty());
}

TEST_F(WriteResultsTest, AReportAfterTheStopIsRefusedAndNotLogged) {
    OpenWriter();
    writer_.Stop();
    EXPECT_FALSE(Write(AllLit()));
    EXPECT_THAT(device_->Outputs(), IsEmpty());
    EXPECT_THAT(Failures(), IsEmpty());
}

// The signal wakes writers that wait; one of them could otherwise write another report, and wait
// for it without being woken again.
TEST_F(WriteResultsTest, AReportIsRefusedAlreadyWhenTheStopWakesWaitingWriters) {
    OpenWriter();
    std::optional<bool> written;
    machine_.SetFaultPolicy([&](const simulator::Call& call) {
        if (call.function == "SetEvent") {
            std::thread([&] { written = Write(AllLit()); }).join();
        }
        return std::optional<Fault>();
    });
    writer_.Stop();
    EXPECT_EQ(written, false);
}

// The probe of the connection comes between the writer's first look at the handle and its use.
TEST_F(WriteResultsTest, ATouchpadClosedMeanwhileIsNotWrittenToAndNotLogged) {
    OpenWriter(DetachableLayout());
    std::thread closing;
    machine_.SetFaultPolicy([&](const simulator::Call& call) {
        if (call.function == "HidD_GetPreparsedData") {
            closing = std::thread([&] { touchpad_.Close(); });
            while (open_->handle.IsOpen()) std::this_thread::yield();
        }
        return std::optional<Fault>();
    });
    EXPECT_FALSE(Write(AllLit()));
    closing.join();
    EXPECT_EQ(machine_.CountCalls("WriteFile"), 0U);
    EXPECT_THAT(Failures(), IsEmpty());
}

TEST_F(WriteResultsTest, AWriteThatCompletesWithinTheCallIsNotWaitedFor) {
    OpenWriter();
    device_->SetWriteBehaviour(WriteBehaviour::Immediate);
    EXPECT_TRUE(Write(AllLit()));
    EXPECT_EQ(machine_.CountCalls("WaitForSingleObject"), 0U);
    EXPECT_EQ(machine_.CountCalls("GetOverlappedResult"), 0U);
}

// All writers wait on one event, which the end of any write signals.
TEST_F(WriteResultsTest, AWriteIsWaitedForThoughTheEndOfAnotherSignalsTheEvent) {
    OpenWriter();
    device_->SetWriteBehaviour(WriteBehaviour::Hold);
    std::optional<bool> written;
    std::thread host([&] { written = Write(AllLit()); });
    ASSERT_TRUE(device_->WaitForHeldWrites());
    writer_.SignalWriteEvent();
    ASSERT_TRUE(machine_.WaitForCalls("GetOverlappedResult", 1));
    // Gives a writer that does not wait the time to fail.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    device_->CompleteHeldWrites();
    host.join();
    EXPECT_EQ(written, true);
    EXPECT_THAT(Failures(), IsEmpty());
}

}  // namespace
}  // namespace kit
