// Reading and writing the button usages of a report, which is as long as the longest of its type.
#pragma once

#include <cstdint>

#include "testing/simulator/hid/ReportLayout.h"

namespace simulator::hid {

// `length` is the size of the list on entry, and the number of set usages on return, even when the
// list is too small for them.
NTSTATUS GetUsages(const ReportLayout& reports, USAGE page, USHORT linkCollection, USAGE* list,
                   ULONG& length, const std::uint8_t* report);

// These process the list in order and stop at the first failure: `length` is then the index of the
// usage that failed, and earlier changes remain.
NTSTATUS SetUsages(const ReportLayout& reports, USAGE page, USHORT linkCollection,
                   const USAGE* list, ULONG& length, std::uint8_t* report);
NTSTATUS UnsetUsages(const ReportLayout& reports, USAGE page, USHORT linkCollection,
                     const USAGE* list, ULONG& length, std::uint8_t* report);

}  // namespace simulator::hid
