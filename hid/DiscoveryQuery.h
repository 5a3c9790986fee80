// What a device session tells discovery: which collection it wants, and which of that collection's
// capabilities are to be catalogued.
#pragma once

#include <cstdint>
#include <list>

namespace vela {

// A collection matches when all three fit. Product ids are not asked: firmware changes them.
struct HidDeviceFilter {
    std::uint16_t VendorID;  // 0 = any vendor
    std::uint16_t UsagePage;
    std::uint16_t Usage;
};

// Capabilities of one report type on one usage page.
struct HidCapUsagePage {
    std::uint32_t ReportType;  // the platform's: 0 input, 1 output, 2 feature
    std::uint16_t UsagePage;
};

using HidDeviceFilterList = std::list<HidDeviceFilter>;
using HidCapUsagePageList = std::list<HidCapUsagePage>;

}  // namespace vela
