// What the haptic touchpad's session looks for.
#pragma once

#include "hid/IDiscoveryQuery.h"

namespace vela {

// The collection of a precision touchpad, whoever made it, and the values on the haptics page in
// its feature reports. Keeps no state.
class HapticDiscovery final : public IDiscoveryQuery {
 public:
    virtual ~HapticDiscovery() = default;

    HidDeviceFilterList GetHidDeviceFilters() override;
    HidCapUsagePageList GetValueCapUsagePages() override;
    HidCapUsagePageList GetButtonCapUsagePages() override;
};

}  // namespace vela
