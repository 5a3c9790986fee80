// The machine's HID device interfaces.
#pragma once

#include <string>
#include <vector>

namespace vela {

// Returns the paths of the HID device interfaces that are present, in the system's enumeration
// order.
std::vector<std::wstring> GetHidDevicePathList();

}  // namespace vela
