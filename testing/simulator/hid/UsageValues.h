// Reading and writing the value usages of a report. The report has the length of the type's
// longest.
#pragma once

#include <cstdint>

#include "testing/simulator/hid/ReportLayout.h"

namespace simulator::hid {

// `value` keeps what it holds on failure.
NTSTATUS GetUsageValue(const ReportLayout& reports, USAGE page, USHORT linkCollection, USAGE usage,
                       ULONG& value, const std::uint8_t* report);

NTSTATUS SetUsageValue(const ReportLayout& reports, USAGE page, USHORT linkCollection, USAGE usage,
                       ULONG value, std::uint8_t* report);

}  // namespace simulator::hid
