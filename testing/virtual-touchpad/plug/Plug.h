// Plugs virtual devices in and out of this machine, from code. Every function throws
// std::runtime_error with one line that says what failed.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace virtual_touchpad {

// For an output report whose byte 0 a host left 0: the byte at `offset` tells which id was meant.
struct OutputIdRule {
    std::uint32_t offset = 0;
    std::uint8_t idIfSet = 0;
    std::uint8_t idIfClear = 0;
};

// Any virtual HID device, as the driver is told of it.
struct DeviceSettings {
    std::vector<std::uint8_t> reportDescriptor;
    std::uint16_t vendorId = 0;
    std::uint16_t productId = 0;
    std::uint16_t versionNumber = 0;
    std::wstring productString;
    std::optional<OutputIdRule> outputIdRule;
};

DeviceSettings SettingsOf(const TouchpadLayout& layout);
DeviceSettings SettingsOf(const HapticLayout& layout);

struct PluggedDevice {
    std::wstring name;
    std::wstring hidPath;  // empty while the HID interface is not there
};

constexpr wchar_t kDefaultName[] = L"touchpad";

// Where vtouchpad.inf, .sys and .cat are: the folder "virtual-touchpad" beside this program.
std::filesystem::path DefaultDriverFolder();

// Returns when the HID interface is there and the system is done with it, with its path. A name
// holds letters, digits, '-' and '_' and is told apart without regard to case.
std::wstring Plug(const DeviceSettings& settings, const std::wstring& name = kDefaultName,
                  const std::filesystem::path& driverFolder = DefaultDriverFolder());
std::wstring Plug(const TouchpadLayout& layout, const std::wstring& name = kDefaultName,
                  const std::filesystem::path& driverFolder = DefaultDriverFolder());

void Unplug(const std::wstring& name = kDefaultName);

std::vector<PluggedDevice> PluggedDevices();

// For tests: one that was ended may have left devices behind.
void UnplugAll();

}  // namespace virtual_touchpad
