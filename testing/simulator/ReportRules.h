// The checks of the HID class driver on a report before the device receives it.
#pragma once

#include <cstddef>

#include <windows.h>
#include <hidpi.h>

#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator {

// Returns ERROR_SUCCESS and sets the length of the report whose id is byte 0. A longer buffer is
// allowed.
DWORD CheckReport(const hid::Collection& collection, HIDP_REPORT_TYPE type, const void* bytes,
                  std::size_t length, std::size_t& reportLength);

}  // namespace simulator
