// Closing during other calls: on other threads, in the callbacks that closing itself makes, and
// before a call that began earlier ends.
#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using testing::Contains;
using testing::IsEmpty;

class ConcurrentClosingTest : public TouchpadTest {
 protected:
    // Disables the touchpad, so that closing, which ends a temporary disable, notifies the host.
    void DisableTemporarily() {
        device_->SendInput(InputReport({kGesture}));
        ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    }
    // The name becomes readable again afterwards and is not a detachable touchpad's.
    void StartHeartbeatWhileTheNameIsUnreadable() {
        Plug();
        machine_.FailAlways("HidD_GetProductString", Fault::Error(31));
        ASSERT_EQ(OpenSession(), vela::kHidOpen);
        session_.Activate(vela::kActive);
        ASSERT_TRUE(log_.WaitForLine("HeartbeatThread created."));
        machine_.StopFailing("HidD_GetProductString");
    }
};

constexpr char kRefused[] =
    "WARNING Uninitialize: Uninitialize failed, called from a callback of the closing itself.";

TEST_F(ConcurrentClosingTest, FromItsOwnCallbackIsRefusedAndGoesOn) {
    OpenAndLight();
    DisableTemporarily();
    std::optional<bool> inner;
    HostCallbacks::DuringStatusChange([&] { inner = session_.Uninitialize(); });
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(inner, false);
    EXPECT_FALSE(session_.IsInitialized());
    EXPECT_EQ(device_->Outputs().back(), BlankReport());
    EXPECT_THAT(LogOf("Uninitialize"), Contains(kRefused).Times(1));
}

TEST_F(ConcurrentClosingTest, MayBeCalledAgainAfterItRefusedItself) {
    OpenAndLight();
    DisableTemporarily();
    HostCallbacks::DuringStatusChange([&] { session_.Uninitialize(); });
    EXPECT_TRUE(session_.Uninitialize());
    HostCallbacks::DuringStatusChange(nullptr);
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    EXPECT_TRUE(session_.Uninitialize());
}

TEST_F(ConcurrentClosingTest, OpeningFromItsCallbackFindsTheSessionOpenStill) {
    OpenAndLight();
    DisableTemporarily();
    std::optional<std::uint32_t> opened;
    const auto information = vela::ScanHIDInformation(&session_);
    HostCallbacks::DuringStatusChange([&] { opened = session_.Initialize(information); });
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_EQ(opened, vela::kHidOpen);
    EXPECT_FALSE(session_.IsInitialized());
}

TEST_F(ConcurrentClosingTest, BesideOpeningLeavesAWholeSessionOrNone) {
    Plug();
    const auto information = vela::ScanHIDInformation(&session_);
    std::atomic<bool> done{false};
    std::thread closing([&] {
        while (!done) session_.Uninitialize();
    });
    for (int round = 0; round < 1000; ++round) {
        ASSERT_EQ(session_.Initialize(information), vela::kHidOpen);
    }
    done = true;
    closing.join();
    ASSERT_EQ(session_.Initialize(information), vela::kHidOpen);
    EXPECT_EQ(session_.Information(), information);
    EXPECT_FALSE(session_.IsActivated());
    EXPECT_TRUE(machine_.MutexExists(L"Global\\VelaDeviceMutex"));
    session_.Enable(true);
    ASSERT_TRUE(device_->WaitForOutputs(1));
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_FALSE(machine_.MutexExists(L"Global\\VelaDeviceMutex"));
    EXPECT_EQ(device_->OpenHandles(), 0U);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

// While closing runs the device is still open, so opening it then would be refused.
TEST_F(ConcurrentClosingTest, OpeningWaitsForAClosingThatIsNotDone) {
    OpenAndLight();
    const auto information = vela::ScanHIDInformation(&session_);
    std::atomic<bool> closing{false};
    std::atomic<bool> opening{false};
    machine_.SetFaultPolicy([&](const simulator::Call& call) {
        if (call.function == "CloseHandle" && call.arguments.rfind("file", 0) == 0) {
            closing = true;
            while (!opening) std::this_thread::yield();
            // Gives an opening that does not wait the time to fail.
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return std::optional<Fault>();
    });
    std::optional<std::uint32_t> opened;
    std::thread host([&] {
        while (!closing) std::this_thread::yield();
        opening = true;
        opened = session_.Initialize(information);
    });
    EXPECT_TRUE(session_.Uninitialize());
    host.join();
    EXPECT_EQ(opened, vela::kHidOpen);
    EXPECT_EQ(session_.Information(), information);
    EXPECT_FALSE(session_.IsActivated());
    EXPECT_TRUE(session_.Activate(vela::kActive));
    EXPECT_TRUE(machine_.MutexExists(L"Global\\VelaDeviceMutex"));
}

// Another thread closes the session during an activation, which ends after that.
TEST_F(ConcurrentClosingTest, AnActivationThatComesLateChangesNothing) {
    OpenAndLight();
    HostCallbacks::DuringStatusChange(
        [&] { std::thread([&] { EXPECT_TRUE(session_.Uninitialize()); }).join(); });
    EXPECT_FALSE(session_.Activate(vela::kDeactivated));
    EXPECT_FALSE(session_.IsActivated());
    HostCallbacks::DuringStatusChange(nullptr);
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    EXPECT_FALSE(session_.IsActivated());
    EXPECT_TRUE(session_.Activate(vela::kActive));
    EXPECT_TRUE(session_.IsActivated());
}

// The callback's own thread closes the session; the outer call then ends without one.
class ClosingInside : public ConcurrentClosingTest,
                      public testing::WithParamInterface<bool (*)(vela::CTandrelHID&)> {};

TEST_P(ClosingInside, ACallbackOfAnotherCallClosesTheSession) {
    OpenAndLight();
    DisableTemporarily();
    std::optional<bool> closed;
    HostCallbacks::DuringStatusChange([&] {
        if (!closed) closed = session_.Uninitialize();
    });
    GetParam()(session_);
    HostCallbacks::DuringStatusChange(nullptr);
    EXPECT_EQ(closed, true);
    EXPECT_FALSE(session_.IsInitialized());
    EXPECT_FALSE(session_.IsActivated());
    EXPECT_FALSE(session_.IsEnabled());
    EXPECT_EQ(device_->Outputs().back(), BlankReport());
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    session_.Enable(true);
    EXPECT_TRUE(device_->WaitForOutputs(1));
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Calls, ClosingInside,
    testing::Values(
        [](vela::CTandrelHID& session) { return session.Activate(vela::kActiveHostSetsLights); },
        [](vela::CTandrelHID& session) { return session.Activate(vela::kDeactivated); },
        [](vela::CTandrelHID& session) { return session.Activate(vela::kSuspended); },
        [](vela::CTandrelHID& session) { return session.Enable(false); }));

// Closing waits for a call that the class driver completes late. The next call gets no handle of
// the closed touchpad.
TEST_F(ConcurrentClosingTest, WaitsForACallOfAnotherThreadOnTheDevice) {
    OpenAndLight();
    std::atomic<bool> inside{false};
    std::atomic<bool> goOn{false};
    machine_.SetFaultPolicy([&](const simulator::Call& call) {
        if (call.function == "HidD_GetFeature") {
            inside = true;
            while (!goOn) std::this_thread::yield();
        }
        return std::optional<Fault>();
    });
    std::optional<bool> written;
    std::thread host([&] { written = session_.SetClickMode(1, 300); });
    while (!inside) std::this_thread::yield();
    std::thread closing([&] { EXPECT_TRUE(session_.Uninitialize()); });
    while (session_.Information() != nullptr) std::this_thread::yield();
    // Gives a closing that does not wait the time to close the handle.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(device_->OpenHandles(), 1U);
    goOn = true;
    host.join();
    closing.join();
    EXPECT_EQ(written, false);
    EXPECT_THAT(machine_.CallTexts({"HidD_SetFeature"}), Contains(testing::HasSubstr("null")));
    EXPECT_THAT(device_->FeatureWrites(), IsEmpty());
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
    EXPECT_EQ(OpenSession(), vela::kHidOpen);
}

TEST_F(ConcurrentClosingTest, StopsAHeartbeatThatAnUnreadableNameStarted) {
    ASSERT_NO_FATAL_FAILURE(StartHeartbeatWhileTheNameIsUnreadable());
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_TRUE(log_.WaitForLine("HeartbeatThread leaved."));
}

class DeactivatingValue : public ConcurrentClosingTest,
                          public testing::WithParamInterface<std::uint32_t> {};

TEST_P(DeactivatingValue, StopsAHeartbeatThatAnUnreadableNameStarted) {
    ASSERT_NO_FATAL_FAILURE(StartHeartbeatWhileTheNameIsUnreadable());
    session_.Activate(GetParam());
    EXPECT_TRUE(log_.WaitForLine("HeartbeatThread leaved."));
}

INSTANTIATE_TEST_SUITE_P(Values, DeactivatingValue,
                         testing::Values(vela::kActiveHostSetsLights, vela::kDeactivated,
                                         vela::kSuspended));

// A thread still uses the first touchpad's handle after the session was closed and opened again.
TEST_F(ConcurrentClosingTest, AReportForAClosedTouchpadIsNotWrittenToTheNextOne) {
    Plug();
    vela::TouchpadDevice touchpad;
    vela::ReportWriter writer(touchpad);
    const auto information = vela::ScanHIDInformation(&session_);
    ASSERT_EQ(touchpad.Open(information), vela::kHidOpen);
    const auto before = touchpad.Current();
    touchpad.Close();
    ASSERT_EQ(touchpad.Open(information), vela::kHidOpen);
    ASSERT_TRUE(writer.Prepare());
    machine_.ForgetCalls();
    EXPECT_FALSE(writer.WriteOutputReportInternal(*before, BlankReport(), true));
    EXPECT_EQ(machine_.CountCalls("WriteFile"), 0U);
    EXPECT_TRUE(writer.WriteOutputReportInternal(*touchpad.Current(), BlankReport(), true));
    touchpad.Close();
}

}  // namespace
}  // namespace kit
