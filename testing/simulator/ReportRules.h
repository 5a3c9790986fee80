// What the HID class driver asks of a report before the device sees it.
#pragma once

#include <cstddef>

#include <windows.h>
#include <hidpi.h>

#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator {

// ERROR_SUCCESS, and the length of the report that byte 0 names; a longer buffer is no mistake.
DWORD CheckReport(const hid::Collection& collection, HIDP_REPORT_TYPE type, const void* bytes,
                  std::size_t length, std::size_t& reportLength);

}  // namespace simulator
