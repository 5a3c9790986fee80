// What the system tells every program that looks for HID devices.
#pragma once

#include <string>
#include <vector>

namespace acceptance {

// The paths of all HID interfaces, in the order in which the system enumerates them.
std::vector<std::wstring> HidPaths();

}  // namespace acceptance
