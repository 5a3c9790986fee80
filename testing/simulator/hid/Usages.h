// Reading and writing the button usages of a report. The report has the length of the type's
// longest.
#pragma once

#include <cstdint>

#include "testing/simulator/hid/ReportLayout.h"

namespace simulator::hid {

// `length` is the room of the list going in, and the number of set usages coming out (of those
// there would be, when the list is too small).
NTSTATUS GetUsages(const ReportLayout& reports, USAGE page, USHORT linkCollection, USAGE* list,
                   ULONG& length, const std::uint8_t* report);

// These go through the list in order and stop at the first failure: `length` is then the index of
// the usage that failed, and what was done before it stays done.
NTSTATUS SetUsages(const ReportLayout& reports, USAGE page, USHORT linkCollection,
                   const USAGE* list, ULONG& length, std::uint8_t* report);
NTSTATUS UnsetUsages(const ReportLayout& reports, USAGE page, USHORT linkCollection,
                     const USAGE* list, ULONG& length, std::uint8_t* report);

}  // namespace simulator::hid
