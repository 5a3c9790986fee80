// The panel's connection to the virtual touchpad: the reports of its hosts, and the user's actions.
#pragma once

#include <cstdint>
#include <memory>

#include "tools/velapanel/Action.h"
#include "tools/velapanel/PanelState.h"

namespace velapanel {

class DeviceWatch {
 public:
    explicit DeviceWatch(std::wstring touchpadName = L"touchpad",
                         std::wstring hapticName = L"haptic");
    ~DeviceWatch();

    // Queries the devices for changes. A missing device is no error.
    void Refresh();
    const PanelState& State() const { return state_; }

    // Throws std::runtime_error with a message of one line on failure.
    void Do(Action action);

 private:
    struct Touchpad;
    struct Haptic;

    void RefreshTouchpad();
    void RefreshHaptic();
    void Add(ReportLine line);

    const std::wstring touchpadName_;
    const std::wstring hapticName_;
    std::unique_ptr<Touchpad> touchpad_;
    std::unique_ptr<Haptic> haptic_;
    PanelState state_;
};

}  // namespace velapanel
