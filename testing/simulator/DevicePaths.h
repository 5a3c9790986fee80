// Paths of device interfaces, in the platform's form.
#pragma once

#include <cstddef>
#include <string>

#include <windows.h>

#include "testing/simulator/Device.h"

namespace simulator {

// The device interface class of HID collections, which every path ends in.
constexpr GUID kHidInterfaceClass = {
    0x4D1E55B2, 0xF16F, 0x11CF, {0x88, 0xCB, 0x00, 0x11, 0x11, 0x00, 0x00, 0x30}};

std::string GuidText(const GUID& guid);

// The path of a collection of the device that was plugged in as number `device`. `collection`
// counts from 1, and is 0 when the device has only one.
std::wstring InterfacePath(const DeviceDescription& description, std::size_t device,
                           std::size_t collection);

}  // namespace simulator
