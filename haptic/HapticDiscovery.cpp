#include "haptic/HapticDiscovery.h"

#include "hid/HidHeaders.h"

namespace vela {
namespace {

constexpr USHORT kAnyVendor = 0;
constexpr USAGE kDigitizerPage = 0x000D;
constexpr USAGE kDigitizerTouchPadUsage = 0x0005;
constexpr USAGE kHapticsPage = 0x000E;

}  // namespace

HidDeviceFilterList HapticDiscovery::GetHidDeviceFilters() {
    return {{kAnyVendor, kDigitizerPage, kDigitizerTouchPadUsage}};
}

HidCapUsagePageList HapticDiscovery::GetValueCapUsagePages() {
    return {{HidP_Feature, kHapticsPage}};
}

HidCapUsagePageList HapticDiscovery::GetButtonCapUsagePages() { return {}; }

}  // namespace vela
