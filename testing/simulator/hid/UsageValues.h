// Reading and writing the value usages of a report, which is as long as the longest of its type.
#pragma once

#include <cstdint>

#include "testing/simulator/hid/ReportLayout.h"

namespace simulator::hid {

// `value` is unchanged on failure.
NTSTATUS GetUsageValue(const ReportLayout& reports, USAGE page, USHORT linkCollection, USAGE usage,
                       ULONG& value, const std::uint8_t* report);

NTSTATUS SetUsageValue(const ReportLayout& reports, USAGE page, USHORT linkCollection, USAGE usage,
                       ULONG value, std::uint8_t* report);

}  // namespace simulator::hid
