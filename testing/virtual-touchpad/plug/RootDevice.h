// Registers, installs and removes root enumerated devices of the virtual HID driver with SETUPAPI.
// Every function throws std::runtime_error with a message of one line.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/plug/Plug.h"

namespace virtual_touchpad {

// Registers the device and writes its configuration to the registry; no driver runs it yet.
void RegisterRootDevice(const std::wstring& name, const std::wstring& controlLink,
                        const DeviceSettings& settings);
// Installs the driver, if it is not installed yet, and starts it for this device.
void StartRootDevice(const std::wstring& name, const std::filesystem::path& driverFolder);
void RemoveRootDevice(const std::wstring& name);

// The control links of all devices that are registered.
std::vector<std::wstring> RootDeviceControlLinks();

}  // namespace virtual_touchpad
