// The query of a discovery: the top-level collection to find, and which of its capabilities to
// catalogue.
#pragma once

#include <cstdint>
#include <list>

namespace vela {

// A collection matches when all three fit. Product ids are not compared: firmware changes them.
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

// Discovery calls these on the thread that scans.
class IDiscoveryQuery {
 public:
    virtual HidDeviceFilterList GetHidDeviceFilters() = 0;
    virtual HidCapUsagePageList GetValueCapUsagePages() = 0;
    virtual HidCapUsagePageList GetButtonCapUsagePages() = 0;

 protected:
    // The destructor is not virtual: nothing is deleted through this interface, and the operations
    // that IHid adds have to follow the three above in the vtable without a gap.
    ~IDiscoveryQuery() = default;
};

}  // namespace vela
