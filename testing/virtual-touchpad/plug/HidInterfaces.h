// Finds the HID interface of a virtual device.
#pragma once

#include <string>

namespace virtual_touchpad {

// Returns the path of the HID interface whose serial number is this control link's name (as the
// driver sets it), or an empty path.
std::wstring FindHidPath(const std::wstring& controlLink);

}  // namespace virtual_touchpad
