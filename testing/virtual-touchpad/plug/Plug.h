// Plugs virtual devices into this machine and out of it. Every function throws std::runtime_error
// with a message of one line.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace virtual_touchpad {

// The id of an output report whose byte 0 is 0: `idIfSet` when the byte at `offset` is not 0, else
// `idIfClear`.
struct OutputIdRule {
    std::uint32_t offset = 0;
    std::uint8_t idIfSet = 0;
    std::uint8_t idIfClear = 0;
};

// The configuration of any virtual HID device, which the driver reads.
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

// The folder of vtouchpad.inf, .sys and .cat: "virtual-touchpad" beside this program.
std::filesystem::path DefaultDriverFolder();

// Returns the path of the HID interface once it exists and the system has recorded its owner. A
// name consists of letters, digits, '-' and '_'; case does not matter.
std::wstring Plug(const DeviceSettings& settings, const std::wstring& name = kDefaultName,
                  const std::filesystem::path& driverFolder = DefaultDriverFolder());
std::wstring Plug(const TouchpadLayout& layout, const std::wstring& name = kDefaultName,
                  const std::filesystem::path& driverFolder = DefaultDriverFolder());

void Unplug(const std::wstring& name = kDefaultName);

std::vector<PluggedDevice> PluggedDevices();

// For tests: one that was killed may have left devices behind.
void UnplugAll();

}  // namespace virtual_touchpad
