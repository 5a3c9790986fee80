// The discovery query of the haptic touchpad's session.
#pragma once

#include "hid/IDiscoveryQuery.h"

namespace vela {

// Selects the collection of a precision touchpad of any vendor, and the value caps on the haptics
// page in its feature reports. Keeps no state.
class HapticDiscovery final : public IDiscoveryQuery {
 public:
    virtual ~HapticDiscovery() = default;

    HidDeviceFilterList GetHidDeviceFilters() override;
    HidCapUsagePageList GetValueCapUsagePages() override;
    HidCapUsagePageList GetButtonCapUsagePages() override;
};

}  // namespace vela
