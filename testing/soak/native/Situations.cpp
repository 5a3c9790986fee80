#include "testing/soak/native/Situations.h"

#include <atomic>
#include <chrono>
#include <iterator>
#include <optional>
#include <string>
#include <thread>

#include "include/VelaAgent.h"
#include "testing/kit/WaitUntil.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace soak {
namespace {

using simulator::Call;
using simulator::Device;
using simulator::Fault;
using simulator::Machine;
using simulator::WriteBehaviour;

std::int64_t sessionsOpened = 0;

// Pulls the plug inside the next call of the platform's `function`, on the thread that calls it.
class PullInside {
 public:
    PullInside(Device& touchpad, const std::string& function) {
        Machine::Get().SetFaultPolicy([this, &touchpad, function](const Call& call) {
            if (call.function == function && !wasPulled_.exchange(true)) touchpad.Unplug();
            return std::optional<Fault>();
        });
    }
    ~PullInside() { Machine::Get().SetFaultPolicy(nullptr); }
    PullInside(const PullInside&) = delete;
    PullInside& operator=(const PullInside&) = delete;

    bool WasPulled() const { return wasPulled_; }

 private:
    std::atomic<bool> wasPulled_{false};
};

bool WithAReadPending(Device& touchpad, Random&) {
    if (!Light() || !touchpad.WaitForPendingReads()) return false;
    touchpad.Unplug();
    return true;
}

bool WithAWritePending(Device& touchpad, Random&) {
    touchpad.SetWriteBehaviour(WriteBehaviour::Hold);
    // Queues a forced report, which is written even when it equals the last one.
    const bool isHeld =
        SetButtonBreathing(VELA_BUTTON_CHAT, 0) != 0 && touchpad.WaitForHeldWrites();
    touchpad.Unplug();
    touchpad.SetWriteBehaviour(WriteBehaviour::Pend);
    return isHeld;
}

bool WithAFeatureCallInFlight(Device& touchpad, Random& random) {
    const bool atTheRead = Below(random, 2) != 0;
    PullInside pulling(touchpad, atTheRead ? "HidD_GetFeature" : "HidD_SetFeature");
    // The call fails because the device is gone before it completes the request.
    return SetClickMode(1, 500) == 0 && pulling.WasPulled();
}

// Closes the session, then pulls the plug while Init scans the devices.
bool DuringEnumeration(Device& touchpad, Random& random) {
    if (UnInit() == 0) return false;
    constexpr const char* kSteps[] = {
        "SetupDiGetClassDevsW", "SetupDiEnumDeviceInterfaces", "SetupDiGetDeviceInterfaceDetailW",
        "CreateFileW",          "HidD_GetAttributes",          "HidD_GetPreparsedData",
        "HidP_GetCaps",         "HidP_GetValueCaps",           "ReadFile"};
    const char* const step = kSteps[Below(random, std::size(kSteps))];
    PullInside pulling(touchpad, step);
    const std::int32_t result = OpenSession();
    const bool isOpen = result == VELA_INIT_OPEN;
    // The plug was pulled before the opening, or after it, as by the reader's first read.
    if (!isOpen) return result == VELA_INIT_NOT_FOUND && pulling.WasPulled();
    touchpad.Unplug();
    return true;
}

std::atomic<Device*> pulledInCallback{nullptr};
std::atomic<bool> calledBack{false};

void PullInCallback() {
    Device* const touchpad = pulledInCallback.exchange(nullptr);
    if (touchpad == nullptr) return;
    touchpad->Unplug();
    calledBack = true;
}

// Pulls in the press callback, on the reader thread, or in the status callback, inside Activate.
bool InsideACallback(Device& touchpad, Random& random) {
    SetVelaButtonPressCallback([](std::uint32_t, std::uint32_t) { PullInCallback(); });
    SetVelaStatusChangeCallback([](std::uint32_t) { PullInCallback(); });
    calledBack = false;
    if (Below(random, 2) != 0) {
        pulledInCallback = &touchpad;
        return Activate(VELA_ACTIVE) != 0 && calledBack;
    }
    if (!Light() || !touchpad.WaitForPendingReads()) return false;
    pulledInCallback = &touchpad;
    touchpad.SendInput({virtual_touchpad::kButtonReportId, 0x08, 0});
    return kit::WaitUntil([] { return calledBack.load(); });
}

}  // namespace

const std::vector<Situation>& Situations() {
    static const std::vector<Situation> situations = {
        {"a read pending", WithAReadPending, false},
        {"a write pending", WithAWritePending, false},
        {"a feature call in flight", WithAFeatureCallInFlight, false},
        {"during enumeration", DuringEnumeration, true},
        {"inside a callback", InsideACallback, false}};
    return situations;
}

std::int32_t OpenSession() {
    const std::int32_t result = Init();
    if (result == VELA_INIT_OPEN) ++sessionsOpened;
    return result;
}

std::int64_t SessionsOpened() { return sessionsOpened; }

bool Light() {
    for (std::uint32_t button = 0; button < 4; ++button) {
        if (EnableSingleButton(button, 1) == 0 || SetButtonVisible(button, 1) == 0) return false;
    }
    return EnableFeature(1) != 0 && Activate(VELA_ACTIVE) != 0;
}

}  // namespace soak
