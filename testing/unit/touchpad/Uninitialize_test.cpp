// Closing a session: the order of its steps, the handles it keeps open, and its callers.
#include <algorithm>
#include <atomic>
#include <optional>
#include <system_error>
#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using UninitializeTest = TouchpadTest;

constexpr char kStarts[] =
    "INFO Uninitialize: ================= Uninitialize starts. =================";

TEST_F(UninitializeTest, LogsItsSteps) {
    OpenAndLight();
    EXPECT_TRUE(session_.Uninitialize());
    std::vector<std::string> story = log_.Texts();
    story.erase(story.begin(), std::find(story.begin(), story.end(), kStarts));
    EXPECT_THAT(
        story,
        ElementsAre(kStarts, "INFO SetButtonBreathing: SetButtonBreathing for BUTTON_ID 2 (0)",
                    "INFO Enable: Enable HID (0)",
                    "INFO Uninitialize: Uninitialize, wait for read input report thread "
                    "finish.",
                    "INFO Uninitialize: Uninitialize, wait for write output report thread "
                    "finish.",
                    "INFO ~CHIDInformation: CHIDInformation clear device UsagePage (ff80), "
                    " Usage (80) information",
                    "INFO Uninitialize: ================= Uninitialize succeed. "
                    "================="));
}

TEST_F(UninitializeTest, DarkensTheLightsOnTheCallersThreadBeforeItStopsTheThreads) {
    OpenAndLight();
    // The writer's reports of disabling the feature fail, so that the last report is not dropped.
    machine_.SetFaultPolicy([host = std::this_thread::get_id()](const simulator::Call& call) {
        const bool fails = call.function == "WriteFile" && call.thread != host;
        return fails ? std::optional<Fault>(Fault::Error(31)) : std::nullopt;
    });
    EXPECT_TRUE(session_.Uninitialize());
    ASSERT_THAT(device_->Outputs(), testing::Not(IsEmpty()));
    EXPECT_EQ(device_->Outputs().back(), BlankReport());
    // The steps are the last write, both events, the device and the mutex.
    std::vector<std::string> ending;
    for (const simulator::Call& call : machine_.Calls()) {
        if (call.thread != std::this_thread::get_id()) continue;
        const bool isStep = call.function == "WriteFile" || call.function == "SetEvent" ||
                            call.function == "CloseHandle";
        if (isStep) ending.push_back(call.Text());
    }
    ASSERT_EQ(ending.size(), 5U);
    EXPECT_THAT(ending[0], testing::StartsWith("WriteFile("));
    EXPECT_THAT(ending[1], testing::StartsWith("SetEvent(event"));
    EXPECT_THAT(ending[2], testing::StartsWith("SetEvent(event"));
    EXPECT_NE(ending[1], ending[2]);
    EXPECT_THAT(ending[3], testing::StartsWith("CloseHandle(file"));
    EXPECT_THAT(ending[4], testing::StartsWith("CloseHandle(mutex"));
}

TEST_F(UninitializeTest, ClosesEverythingButItsTwoEvents) {
    OpenAndLight();
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_THAT(machine_.OpenHandles(),
                ElementsAre(testing::StartsWith("event"), testing::StartsWith("event")));
    EXPECT_EQ(machine_.PreparsedDataInUse(), 0U);
    EXPECT_FALSE(machine_.MutexExists(L"Global\\VelaDeviceMutex"));
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(UninitializeTest, OfAClosedSessionOnlyLogsThatItStarts) {
    EXPECT_FALSE(session_.Uninitialize());
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
    EXPECT_THAT(log_.Texts(), ElementsAre(kStarts));
}

TEST_F(UninitializeTest, ASecondOneFindsNothingToClose) {
    Open();
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_FALSE(session_.Uninitialize());
}

TEST_F(UninitializeTest, ResetsTheSessionsState) {
    OpenAndLight();
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_FALSE(session_.IsActivated());
    EXPECT_FALSE(session_.IsEnabled());
    EXPECT_FALSE(session_.IsButtonEnabled(vela::BUTTON_ID_CAMERA));
    EXPECT_EQ(session_.Information(), nullptr);
}

TEST_F(UninitializeTest, ForgetsTheCallbacks) {
    OpenAndLight();
    session_.Uninitialize();
    ASSERT_EQ(session_.Initialize(vela::ScanHIDInformation(&session_)), vela::kHidOpen);
    session_.EnableButton(vela::BUTTON_ID_CAMERA, true);
    HostCallbacks::Reset();
    device_->SendInput(InputReport({kCameraButton}));
    // Settle waits until the press is handled, which toggles the light.
    Settle();
    ASSERT_TRUE(device_->WaitForPendingReads());
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
}

TEST_F(UninitializeTest, WritesTheBlankReportOnceOnly) {
    OpenAndLight();
    session_.Enable(false);
    Settle();
    session_.Uninitialize();
    // The forced report of stopping the breathing; the two unforced ones equal the last report.
    EXPECT_THAT(device_->Outputs(), SizeIs(testing::Le(1U)));
}

TEST_F(UninitializeTest, FromACallbackRaisesADeadlockAndCanBeDoneLater) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "ThreadSanitizer itself breaks off at a second join after a refused one";
#endif
    OpenAndLight();
    std::atomic<bool> raised{false};
    HostCallbacks::DuringButtonPress([&] {
        try {
            session_.Uninitialize();
        } catch (const std::system_error& error) {
            raised = error.code() == std::errc::resource_deadlock_would_occur;
        }
    });
    device_->SendInput(InputReport({kCameraButton}));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    while (!raised) std::this_thread::yield();
    EXPECT_TRUE(session_.Uninitialize());
}

TEST_F(UninitializeTest, OfTwoThreadsClosesOnce) {
    for (int round = 0; round < 20; ++round) {
        if (device_ == nullptr) Plug();
        ASSERT_EQ(OpenSession(), vela::kHidOpen);
        std::atomic<int> closed{0};
        std::thread other([&] { closed += session_.Uninitialize() ? 1 : 0; });
        closed += session_.Uninitialize() ? 1 : 0;
        other.join();
        EXPECT_EQ(closed, 1);
    }
}

TEST_F(UninitializeTest, EndsWhilePressesArrive) {
    OpenAndLight();
    std::atomic<bool> done{false};
    std::thread person([&] {
        while (!done) device_->SendInput(InputReport({kCameraButton, kMicrophoneButton}));
    });
    ASSERT_TRUE(HostCallbacks::WaitForCalls(10));
    EXPECT_TRUE(session_.Uninitialize());
    const std::size_t calls = HostCallbacks::Calls().size();
    done = true;
    person.join();
    EXPECT_EQ(HostCallbacks::Calls().size(), calls);
}

TEST_F(UninitializeTest, EndsOnATouchpadThatIsGone) {
    OpenAndLight();
    device_->Unplug();
    EXPECT_TRUE(session_.Uninitialize());
    device_->PlugIn();
    device_->ForgetOutputs();
    EXPECT_EQ(OpenSession(), vela::kHidOpen);
    session_.Enable(true);
    EXPECT_TRUE(device_->WaitForOutputs(1));
}

TEST_F(UninitializeTest, StopsTheHeartbeatWithoutWaitingForIt) {
    OpenAndLight(DetachableLayout());
    EXPECT_TRUE(session_.Uninitialize());
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    session_.Activate(vela::kActive);  // joins the old heartbeat
    EXPECT_THAT(LogOf("HeartbeatThread"),
                testing::IsSupersetOf({"INFO HeartbeatThread: HeartbeatThread created.",
                                       "INFO HeartbeatThread: HeartbeatThread leaved."}));
}

TEST_F(UninitializeTest, HostCallsMeanwhileDoNoHarm) {
    Plug();
    std::atomic<bool> done{false};
    std::thread host([&] {
        for (std::uint32_t button = 0; !done; button = (button + 1) % 5) {
            session_.SetButtonLight(button, true);
            session_.UpdateVelaState();
            session_.SetBrightness(7);
            session_.IsButtonEnabled(button);
            session_.GetClickMode();
        }
    });
    for (int round = 0; round < 100; ++round) {
        OpenSession();
        session_.Uninitialize();
    }
    done = true;
    host.join();
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

}  // namespace
}  // namespace kit
