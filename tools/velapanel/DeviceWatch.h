// The panel's side of the virtual touchpad: what its hosts sent, and what a person does to it.
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

    // Asks the devices what is new. A device that is not there, or not any more, is no error.
    void Refresh();
    const PanelState& State() const { return state_; }

    // Throws std::runtime_error with one line when it cannot be done.
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
