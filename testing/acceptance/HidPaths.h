// The system's list of HID devices.
#pragma once

#include <string>
#include <vector>

namespace acceptance {

// Returns the paths of all HID interfaces, in the order in which the system enumerates them.
std::vector<std::wstring> HidPaths();

}  // namespace acceptance
