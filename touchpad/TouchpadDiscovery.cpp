#include "touchpad/TouchpadDiscovery.h"

#include "hid/VendorList.h"
#include "touchpad/TouchpadUsages.h"

namespace vela {

HidDeviceFilterList TouchpadDiscovery::GetHidDeviceFilters() {
    HidDeviceFilterList filters;
    for (const std::uint32_t vendorId : GetVidsFromFile()) {
        // Vendor ids are 16 bits wide; a longer section name selects by its low bits.
        filters.push_back({static_cast<std::uint16_t>(vendorId & 0xFFFF), kTouchpadUsagePage,
                           kMeetingButtonsUsage});
    }
    if (filters.empty()) {
        filters.push_back({kTouchpadVendorId, kTouchpadUsagePage, kMeetingButtonsUsage});
    }
    return filters;
}

HidCapUsagePageList TouchpadDiscovery::GetValueCapUsagePages() {
    return {{HidP_Input, kTouchpadUsagePage},
            {HidP_Output, kTouchpadUsagePage},
            {HidP_Feature, kTouchpadUsagePage}};
}

HidCapUsagePageList TouchpadDiscovery::GetButtonCapUsagePages() {
    return {{HidP_Input, kTouchpadUsagePage}, {HidP_Output, kTouchpadUsagePage}};
}

}  // namespace vela
