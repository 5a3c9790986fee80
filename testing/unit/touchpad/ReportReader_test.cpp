// The reader thread: how it asks for reports, and how it rests when there are none to be had.
#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ReportReaderTest = TouchpadTest;

TEST_F(ReportReaderTest, AsksForTheUsageCountOnceAndForWholeReports) {
    Open();
    ASSERT_TRUE(device_->WaitForPendingReads());
    device_->SendInput(InputReport({kGesture}));
    ASSERT_TRUE(machine_.WaitForCalls("ReadFile", 2));
    EXPECT_THAT(machine_.CallTexts({"HidP_MaxUsageListLength"}),
                ElementsAre("HidP_MaxUsageListLength(input, 0x0)"));
    for (const std::string& call : machine_.CallTexts({"ReadFile"})) {
        EXPECT_THAT(call, testing::MatchesRegex("ReadFile\\(file#[0-9]+, 3, event#[0-9]+\\)"));
    }
}

TEST_F(ReportReaderTest, LogsTheReportIdAndHandsTheReportOn) {
    Open();
    device_->SendInput(InputReport({kCameraButton}));
    Settle();
    ASSERT_TRUE(machine_.WaitForCalls("ReadFile", 2));
    session_.Uninitialize();
    EXPECT_THAT(LogOf("ReadInputReportThread"),
                ElementsAre("INFO ReadInputReportThread: HandleInputReport reportID 0x1"));
    EXPECT_EQ(machine_.CountCalls("HidP_GetUsages"), 1U);
}

TEST_F(ReportReaderTest, TakesReportsThatCompleteWithinTheCall) {
    OpenAndLight();
    // Both are queued before the reader comes back for the second.
    device_->SendInput(InputReport({kCameraButton}));
    device_->SendInput(InputReport({kMicrophoneButton}));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1", "press 1 1"));
}

TEST_F(ReportReaderTest, KeepsReadingAfterAReadThatFailedLate) {
    OpenAndLight();
    ASSERT_TRUE(device_->WaitForPendingReads());
    device_->FailPendingReads(31);
    ASSERT_TRUE(device_->WaitForPendingReads());
    device_->SendInput(InputReport({kCameraButton}));
    EXPECT_TRUE(HostCallbacks::WaitForCalls(1));
}

TEST_F(ReportReaderTest, RestsAfterAReadThatFailedAtOnce) {
    Plug();
    machine_.FailNext("ReadFile", Fault::Error(1167));
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    ASSERT_TRUE(machine_.WaitForCalls("WaitForSingleObject", 1));
    Settle();
    // The results that are asked for are those of the writes.
    ASSERT_TRUE(machine_.WaitForCalls("GetOverlappedResult", machine_.CountCalls("WriteFile")));
    // It waits for the event, which only Uninitialize signals, and asks the device no more.
    EXPECT_EQ(machine_.CountCalls("ReadFile"), 1U);
    EXPECT_EQ(machine_.CountCalls("GetOverlappedResult"), machine_.CountCalls("WriteFile"));
    EXPECT_THAT(machine_.CallTexts({"WaitForSingleObject"})[0], testing::HasSubstr("infinite"));
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(machine_.CountCalls("ReadFile"), 1U);
}

TEST_F(ReportReaderTest, RestsOnATouchpadThatIsGoneAndSaysNothing) {
    Open();
    ASSERT_TRUE(device_->WaitForPendingReads());
    device_->Unplug();
    // The pending read failed; the next fails at once, and then it waits.
    ASSERT_TRUE(machine_.WaitForCalls("ReadFile", 2));
    ASSERT_TRUE(machine_.WaitForCalls("WaitForSingleObject", 2));
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(machine_.CountCalls("ReadFile"), 2U);
    EXPECT_THAT(LogOf("ReadInputReportThread"), IsEmpty());
}

TEST_F(ReportReaderTest, EndsAtOnceWhereThereAreNoInputReports) {
    TouchpadLayout layout;
    layout.inputReportIds.clear();
    Open(layout);
    Settle();
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(machine_.CountCalls("ReadFile"), 0U);
    EXPECT_EQ(machine_.CountCalls("HidP_MaxUsageListLength"), 0U);
}

TEST_F(ReportReaderTest, ZeroesItsBufferBetweenReports) {
    OpenAndLight();
    device_->SendInput(InputReport({kDisabled}, 0xFF));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    // One byte: the platform pads the report, and nothing of the earlier one shows through.
    device_->SendInput({virtual_touchpad::kButtonReportId});
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 3", "status 0"));
}

TEST_F(ReportReaderTest, LeavesItsPendingReadWhereItMayStillComplete) {
    Open();
    ASSERT_TRUE(device_->WaitForPendingReads());
    // Closing completes the read, in a record and a buffer that the thread has left behind.
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(device_->PendingReads(), 0U);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

}  // namespace
}  // namespace kit
