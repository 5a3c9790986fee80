// What the agent's two sessions ask of discovery.
#pragma once

#include "touchpad/IHid.h"

namespace velactl {

// Asks, and opens nothing.
class SessionQuery : public vela::IHid {
 public:
    std::uint32_t Initialize(const std::shared_ptr<const vela::CHIDInformation>&) override {
        return vela::kHidFailed;
    }
    bool Uninitialize() override { return false; }
};

class TouchpadQuery : public SessionQuery {
 public:
    // The vendors of "Vela.ini", else the touchpad's own.
    vela::HidDeviceFilterList GetHidDeviceFilters() override;
    vela::HidCapUsagePageList GetValueCapUsagePages() override;
    vela::HidCapUsagePageList GetButtonCapUsagePages() override;
};

class HapticQuery : public SessionQuery {
 public:
    vela::HidDeviceFilterList GetHidDeviceFilters() override;
    vela::HidCapUsagePageList GetValueCapUsagePages() override;
    vela::HidCapUsagePageList GetButtonCapUsagePages() override;
};

}  // namespace velactl
