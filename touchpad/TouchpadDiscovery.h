// The discovery query of the touchpad's session.
#pragma once

#include "hid/IDiscoveryQuery.h"

namespace vela {

// Selects the vendor-defined collection with the meeting buttons, of the vendors in "Vela.ini" or
// else of the touchpad's own vendor, and all its capabilities except the button caps of feature
// reports. Keeps no state: the file is read at each call.
class TouchpadDiscovery final : public IDiscoveryQuery {
 public:
    virtual ~TouchpadDiscovery() = default;

    HidDeviceFilterList GetHidDeviceFilters() override;
    HidCapUsagePageList GetValueCapUsagePages() override;
    HidCapUsagePageList GetButtonCapUsagePages() override;
};

}  // namespace vela
