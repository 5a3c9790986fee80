// What the touchpad's session looks for.
#pragma once

#include "hid/IDiscoveryQuery.h"

namespace vela {

// The vendor-defined collection with the meeting buttons, of the vendors in "Vela.ini" or else of
// the touchpad's own vendor, and all its capabilities but the buttons of feature reports. Keeps no
// state: the file is read at each call.
class TouchpadDiscovery final : public IDiscoveryQuery {
 public:
    virtual ~TouchpadDiscovery() = default;

    HidDeviceFilterList GetHidDeviceFilters() override;
    HidCapUsagePageList GetValueCapUsagePages() override;
    HidCapUsagePageList GetButtonCapUsagePages() override;
};

}  // namespace vela
