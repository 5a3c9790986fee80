#include "testing/virtual-touchpad/plug/Plug.h"

#include <windows.h>

#include <chrono>
#include <stdexcept>
#include <thread>

#include "testing/virtual-touchpad/control/ControlProtocol.h"
#include "testing/virtual-touchpad/control/VirtualDevice.h"
#include "testing/virtual-touchpad/plug/HidInterfaces.h"
#include "testing/virtual-touchpad/plug/RootDevice.h"

namespace virtual_touchpad {
namespace {

// Far longer than needed; a first start on a busy machine is the slowest.
constexpr std::chrono::seconds kPatience{5};
// On a busy machine Wine occasionally loses a device's arrival; plugged in again, it appears.
constexpr int kPlugAttempts = 3;
constexpr std::chrono::milliseconds kPollInterval{10};

void CheckName(const std::wstring& name) {
    const wchar_t allowed[] = L"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_";
    if (name.empty() || name.size() > 32 || name.find_first_not_of(allowed) != std::wstring::npos) {
        throw std::runtime_error(
            "a device's name is 1 to 32 letters, digits, '-' and '_', without blanks");
    }
}

std::wstring ControlLink(const std::wstring& name) { return VIRTUAL_HID_LINK_PREFIX + name; }

template <typename Condition>
bool WaitUntil(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) return false;
        std::this_thread::sleep_for(kPollInterval);
    }
    return true;
}

template <typename Layout>
DeviceSettings CommonSettings(const Layout& layout) {
    DeviceSettings settings;
    settings.reportDescriptor = BuildReportDescriptor(layout);
    settings.vendorId = layout.vendorId;
    settings.productId = layout.productId;
    settings.versionNumber = layout.versionNumber;
    settings.productString = layout.productString;
    return settings;
}

}  // namespace

DeviceSettings SettingsOf(const TouchpadLayout& layout) {
    DeviceSettings settings = CommonSettings(layout);
    const std::uint8_t requestId = layout.hasRequest ? layout.requestReportId : kLightReportId;
    settings.outputIdRule = OutputIdRule{kRequestByteOffset, requestId, kLightReportId};
    return settings;
}

DeviceSettings SettingsOf(const HapticLayout& layout) { return CommonSettings(layout); }

std::filesystem::path DefaultDriverFolder() {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return std::filesystem::path(program).parent_path() / "virtual-touchpad";
}

namespace {

// The system exposes the HID interface before it records the device that owns it; if the device
// were removed in between, the interface would stay.
bool IsOwnerRecorded(const std::wstring& name) {
    try {
        return VirtualDevice(name).State().enumerations >= 2;
    } catch (const std::runtime_error&) {
        return false;  // not there yet, or not any more
    }
}

// Returns the path of the HID interface. When the interface does not appear or its owner is not
// recorded in time, removes the device and returns an empty path.
std::wstring TryToPlug(const DeviceSettings& settings, const std::wstring& name,
                       const std::filesystem::path& driverFolder) {
    const std::wstring link = ControlLink(name);
    RegisterRootDevice(name, link, settings);
    try {
        StartRootDevice(name, driverFolder);
        std::wstring path;
        if (WaitUntil([&] { return !(path = FindHidPath(link)).empty(); }) &&
            WaitUntil([&] { return IsOwnerRecorded(name); })) {
            return path;
        }
        RemoveRootDevice(name);
        return {};
    } catch (...) {
        try {
            RemoveRootDevice(name);
        } catch (const std::runtime_error&) {
            // The first failure is the one to report.
        }
        throw;
    }
}

}  // namespace

std::wstring Plug(const DeviceSettings& settings, const std::wstring& name,
                  const std::filesystem::path& driverFolder) {
    CheckName(name);
    for (int attempt = 0; attempt < kPlugAttempts; ++attempt) {
        std::wstring path = TryToPlug(settings, name, driverFolder);
        if (!path.empty()) return path;
    }
    throw std::runtime_error(
        "the driver runs, but no HID interface appeared that the system was done with");
}

std::wstring Plug(const TouchpadLayout& layout, const std::wstring& name,
                  const std::filesystem::path& driverFolder) {
    return Plug(SettingsOf(layout), name, driverFolder);
}

void Unplug(const std::wstring& name) {
    CheckName(name);
    RemoveRootDevice(name);
    if (!WaitUntil([&] { return FindHidPath(ControlLink(name)).empty(); })) {
        throw std::runtime_error("the device was removed, but its HID interface is still there");
    }
}

std::vector<PluggedDevice> PluggedDevices() {
    std::vector<PluggedDevice> devices;
    const std::size_t prefixLength = std::wstring(VIRTUAL_HID_LINK_PREFIX).size();
    for (const std::wstring& link : RootDeviceControlLinks()) {
        if (link.size() <= prefixLength) continue;
        devices.push_back({link.substr(prefixLength), FindHidPath(link)});
    }
    return devices;
}

void UnplugAll() {
    for (const PluggedDevice& device : PluggedDevices()) Unplug(device.name);
}

}  // namespace virtual_touchpad
