// Finds the one HID top-level collection that a device session wants.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hid/HIDInformation.h"
#include "touchpad/IHid.h"

namespace vela {

// Paths of the HID device interfaces that are present, in the system's enumeration order.
std::vector<std::wstring> GetHidDevicePathList();

// Walks the present interfaces and returns the record of the first that fits one of the session's
// filters and whose capability catalogue fills. Never null: when nothing fits, or the session is
// null, the record's device path is empty. Reads only; no handle stays open. Keeps no state, so any
// number of threads may scan at once. Throws std::bad_alloc.
std::shared_ptr<CHIDInformation> ScanHIDInformation(IHid* device);

}  // namespace vela
