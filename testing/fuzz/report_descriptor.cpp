// Uses any bytes as the report descriptor of a touchpad: the scans end, and a session that opens
// can be used and closed again, with nothing left open.
#include <algorithm>

#include "include/VelaAgent.h"
#include "testing/fuzz/Check.h"
#include "testing/fuzz/FuzzDevice.h"
#include "testing/fuzz/FuzzInput.h"
#include "testing/kit/HostCallbacks.h"

namespace {

using fuzz::Check;
using fuzz::FuzzInput;
using simulator::Bytes;
using simulator::Device;
using simulator::Machine;

// The parts of an input in their order.
struct Input {
    std::uint16_t version;
    Bytes report;
    Bytes descriptor;
};

Input Take(FuzzInput& input) {
    const std::uint16_t version = input.Byte();
    Bytes report = input.Bytes(input.Byte() % 8U);
    return {version, std::move(report), input.Rest()};
}

std::vector<std::shared_ptr<Device>> PlugAll(Machine& machine, const Input& input) {
    simulator::DeviceDescription description = kit::Describe(virtual_touchpad::TouchpadLayout{});
    description.versionNumber = input.version;
    description.reportDescriptor = input.descriptor;
    try {
        return machine.PlugAll(description);
    } catch (const simulator::hid::DescriptorError&) {
        return {};
    }
}

Device* OpenDevice(const std::vector<std::shared_ptr<Device>>& devices) {
    const auto open = std::find_if(devices.begin(), devices.end(),
                                   [](const auto& device) { return device->OpenHandles() != 0; });
    return open == devices.end() ? nullptr : open->get();
}

void UseSession() {
    SetVelaButtonPressCallback(kit::OnButtonPress);
    SetVelaStatusChangeCallback(kit::OnStatusChange);
    EnableFeature(1);
    Activate(0);
    EnableChatBreathing(1);
    for (std::uint32_t button = 0; button < 4; ++button) {
        EnableSingleButton(button, 1);
        SetButtonVisible(button, 1);
        SetButtonLight(button, 1);
    }
    SetButtonBreathing(VELA_BUTTON_CHAT, 1);
    SetButtonVisible(VELA_BUTTON_CAMERA, 0);
    SetClickMode(1, 300);
    GetClickMode();
    UpdateVelaState();
    IsSupportBiDirectionSwipe();
    Activate(5);
}

// Sends nothing to a session without input reports: it has no reader.
void Send(Device& device, Bytes report) {
    const std::size_t longest = fuzz::InputReportLength(device);
    if (longest == 0 || report.empty()) return;
    Check(device.WaitForPendingReads(), "the session reads no input reports");
    report.resize(std::min(report.size(), longest));
    device.SendInput(report);
    Check(device.WaitForPendingReads(), "the reader does not come back");
}

void TryTouchpad(const std::vector<std::shared_ptr<Device>>& devices, const Bytes& report) {
    const bool present = IsVelaPresent() != 0;
    fuzz::CheckSame(Init(), present ? 1 : 2, "Init");
    Device* const device = OpenDevice(devices);
    Check(present == (device != nullptr), "Init and the devices disagree");
    if (device != nullptr) {
        UseSession();
        Send(*device, report);
    }
    fuzz::CheckSame(UnInit() != 0, present, "UnInit");
}

void TryHapticTouchpad() {
    const bool present = IsHapticTPPresent() != 0;
    const bool open = InitHapticTP() != 0;
    Check(present || !open, "a haptic touchpad that is not there was opened");
    SetHapticTPIntensityLevel(40);
    GetHapticTPIntensityLevel();
    fuzz::CheckSame(UnInitHapticTP() != 0, open, "UnInitHapticTP");
}

// A session leaves its two events open by design, because abandoned operations may still signal
// them.
void CheckNothingIsLeft(const Machine& machine,
                        const std::vector<std::shared_ptr<Device>>& devices) {
    for (const std::string& name : machine.OpenHandles()) {
        Check(name.compare(0, 5, "event") == 0, "left open: " + name);
    }
    Check(OpenDevice(devices) == nullptr, "a device is left open");
    Check(machine.GlobalMemoryInUse() == 0, "global memory is left in use");
    fuzz::CheckSame(machine.Misuse(), {}, "misuse of the platform");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput bytes(data, size);
    const Input input = Take(bytes);
    Machine& machine = kit::EmptyMachine();
    const auto devices = PlugAll(machine, input);
    TryTouchpad(devices, input.report);
    TryHapticTouchpad();
    CheckNothingIsLeft(machine, devices);
    return 0;
}
