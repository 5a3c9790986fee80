// Root enumerated devices of the virtual HID driver: registering, installing and removing them with
// SETUPAPI. Every function throws std::runtime_error with one line that says what failed.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/plug/Plug.h"

namespace virtual_touchpad {

// The device is known to the machine afterwards, and its configuration in the registry, but no
// driver runs it yet.
void RegisterRootDevice(const std::wstring& name, const std::wstring& controlLink,
                        const DeviceSettings& settings);
// Installs the driver, if that was not done before, and starts it for this device.
void StartRootDevice(const std::wstring& name, const std::filesystem::path& driverFolder);
void RemoveRootDevice(const std::wstring& name);

// The control links of all devices that are registered.
std::vector<std::wstring> RootDeviceControlLinks();

}  // namespace virtual_touchpad
