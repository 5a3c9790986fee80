// Which HID interface of this machine belongs to which virtual device.
#pragma once

#include <string>

namespace virtual_touchpad {

// The path of the HID interface whose serial number is this control link's name (the driver answers
// so); empty when there is none.
std::wstring FindHidPath(const std::wstring& controlLink);

}  // namespace virtual_touchpad
