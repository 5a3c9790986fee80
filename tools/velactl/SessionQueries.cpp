#include "tools/velactl/SessionQueries.h"

#include "hid/VendorList.h"
#include "touchpad/TouchpadUsages.h"

namespace velactl {
namespace {

constexpr USAGE kDigitizerPage = 0x000D;
constexpr USAGE kTouchPadUsage = 0x0005;
constexpr USAGE kHapticsPage = 0x000E;

}  // namespace

vela::HidDeviceFilterList TouchpadQuery::GetHidDeviceFilters() {
    vela::HidDeviceFilterList filters;
    for (const std::uint32_t vendorId : vela::GetVidsFromFile()) {
        filters.push_back({static_cast<std::uint16_t>(vendorId & 0xFFFF), vela::kTouchpadUsagePage,
                           vela::kTouchpadUsage});
    }
    if (filters.empty()) {
        filters.push_back(
            {vela::kTouchpadVendorId, vela::kTouchpadUsagePage, vela::kTouchpadUsage});
    }
    return filters;
}

vela::HidCapUsagePageList TouchpadQuery::GetValueCapUsagePages() {
    return {{HidP_Input, vela::kTouchpadUsagePage},
            {HidP_Output, vela::kTouchpadUsagePage},
            {HidP_Feature, vela::kTouchpadUsagePage}};
}

vela::HidCapUsagePageList TouchpadQuery::GetButtonCapUsagePages() {
    return {{HidP_Input, vela::kTouchpadUsagePage}, {HidP_Output, vela::kTouchpadUsagePage}};
}

vela::HidDeviceFilterList HapticQuery::GetHidDeviceFilters() {
    return {{0, kDigitizerPage, kTouchPadUsage}};
}

vela::HidCapUsagePageList HapticQuery::GetValueCapUsagePages() {
    return {{HidP_Feature, kHapticsPage}};
}

vela::HidCapUsagePageList HapticQuery::GetButtonCapUsagePages() { return {}; }

}  // namespace velactl
