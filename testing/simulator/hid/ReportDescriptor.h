// Report descriptors in bytes, parsed into top-level collections.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

#include <windows.h>
#include <hidpi.h>

namespace simulator::hid {

// The descriptor is malformed, or larger than any real device's; the text says where and why.
class DescriptorError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// One parsed top-level collection, to which preparsed data refers.
class Collection;

// Does not allocate according to lengths or counts found in the bytes.
std::vector<std::shared_ptr<const Collection>> ParseReportDescriptor(
    const std::vector<std::uint8_t>& descriptor);

HIDP_CAPS CapsOf(const Collection& collection);

// Returns the length in bytes of a report with its id byte (which counts even without report ids),
// or nothing when the collection has no report of that type and id. Without report ids the only id
// is 0.
std::optional<std::size_t> ReportLength(const Collection& collection, HIDP_REPORT_TYPE type,
                                        std::uint8_t reportId);
bool UsesReportIds(const Collection& collection);
std::vector<std::uint8_t> ReportIds(const Collection& collection, HIDP_REPORT_TYPE type);

// Preparsed data as HidD_GetPreparsedData returns it: it stays valid after the device is unplugged
// and must be freed exactly once. FreePreparsedData returns false for a pointer that is not in use.
PHIDP_PREPARSED_DATA AllocatePreparsedData(std::shared_ptr<const Collection> collection);
bool FreePreparsedData(PHIDP_PREPARSED_DATA preparsed);
std::size_t PreparsedDataInUse();

}  // namespace simulator::hid
