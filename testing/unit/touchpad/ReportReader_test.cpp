// The reader thread: its read requests, and its waiting when no report can be read.
#include <algorithm>
#include <chrono>
#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ReportReaderTest = TouchpadTest;

TEST_F(ReportReaderTest, QueriesTheUsageCountOnceAndReadsWholeReports) {
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
    // Both reports are queued before the reader issues its second read.
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

TEST_F(ReportReaderTest, WaitsAfterAReadThatFailedAtOnce) {
    Plug();
    machine_.FailNext("ReadFile", Fault::Error(1167));
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    ASSERT_TRUE(machine_.WaitForCalls("WaitForSingleObject", 1));
    Settle();
    // Only the writes have their results queried.
    ASSERT_TRUE(machine_.WaitForCalls("GetOverlappedResult", machine_.CountCalls("WriteFile")));
    // The reader waits for the event, which only Uninitialize signals, and issues no further read.
    EXPECT_EQ(machine_.CountCalls("ReadFile"), 1U);
    EXPECT_EQ(machine_.CountCalls("GetOverlappedResult"), machine_.CountCalls("WriteFile"));
    EXPECT_THAT(machine_.CallTexts({"WaitForSingleObject"})[0], testing::HasSubstr("infinite"));
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(machine_.CountCalls("ReadFile"), 1U);
}

TEST_F(ReportReaderTest, WaitsOnATouchpadThatIsGoneAndLogsNothing) {
    Open();
    ASSERT_TRUE(device_->WaitForPendingReads());
    device_->Unplug();
    // The pending read failed; the next fails at once, and then the reader waits.
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
    // The platform pads the one byte, and nothing of the earlier report remains.
    device_->SendInput({virtual_touchpad::kButtonReportId});
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 3", "status 0"));
}

TEST_F(ReportReaderTest, LeavesItsPendingReadWhereItMayStillComplete) {
    Open();
    ASSERT_TRUE(device_->WaitForPendingReads());
    // Closing completes the read, whose record and buffer the thread no longer uses.
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(device_->PendingReads(), 0U);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(ReportReaderTest, LogsAReportBeforeWhatIsDoneWithIt) {
    OpenAndLight();
    device_->SendInput(InputReport({kChatButton}));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    session_.Uninitialize();
    std::vector<std::string> lines;
    for (const LogLine& line : log_.Lines()) {
        if (line.function == "ReadInputReportThread" || line.function == "HandleInputReport") {
            lines.push_back(line.message);
        }
    }
    EXPECT_THAT(lines, ElementsAre("HandleInputReport reportID 0x1",
                                   "Handle HID output report for chat button"));
}

TEST_F(ReportReaderTest, DoesNotWaitForAReportThatIsThereAtOnce) {
    OpenAndLight();
    ASSERT_TRUE(device_->WaitForPendingReads());
    int presses = 0;
    std::ptrdiff_t waits = 0;
    // The writer may still wait for the last report that lit the touchpad.
    const auto isOwnWait = [](const simulator::Call& call) {
        return call.thread == std::this_thread::get_id() &&
               (call.function == "WaitForSingleObject" || call.function == "GetOverlappedResult");
    };
    HostCallbacks::DuringButtonPress([&] {
        if (++presses == 1) {
            machine_.ForgetCalls();
            device_->SendInput(InputReport({kShareScreenButton}));
        } else {
            const std::vector<simulator::Call> calls = machine_.Calls();
            waits = std::count_if(calls.begin(), calls.end(), isOwnWait);
        }
    });
    // Neither button's press changes a light, so nothing is written.
    device_->SendInput(InputReport({kChatButton}));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    session_.Uninitialize();
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 2 1", "press 3 1"));
    EXPECT_EQ(waits, 0);
}

TEST_F(ReportReaderTest, TakesTheReportOfAReadWhoseWaitFailed) {
    Plug();
    machine_.FailNext("WaitForSingleObject", Fault::Result(0xFFFFFFFF, 6));
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    // Before the first write, whose wait would fail in place of the reader's.
    ASSERT_TRUE(machine_.WaitForCalls("GetOverlappedResult", 1));
    session_.EnableButton(vela::BUTTON_ID_CHAT, true);
    device_->SendInput(InputReport({kChatButton}));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 2 1"));
}

// The kernel still writes to the first read's record, so the next read has a record of its own.
TEST_F(ReportReaderTest, LeavesAReadWhoseResultCannotBeQueriedAndIssuesAnother) {
    Plug();
    machine_.FailNext("WaitForSingleObject", Fault::Result(0xFFFFFFFF, 6));
    machine_.FailNext("GetOverlappedResult", Fault::Error(6));
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    ASSERT_TRUE(device_->WaitForPendingReads(2));
    session_.EnableButton(vela::BUTTON_ID_CHAT, true);
    session_.EnableButton(vela::BUTTON_ID_SHARE_SCREEN, true);
    device_->SendInput(InputReport({kChatButton}));
    // Gives a reader with one record for both the time to take the report.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    device_->SendInput(InputReport({kShareScreenButton}));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    session_.Uninitialize();
    // The first report went to the read that was left.
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 3 1"));
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

}  // namespace
}  // namespace kit
