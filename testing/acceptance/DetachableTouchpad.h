// A touchpad that tells by its name that it can be taken off the machine.
#pragma once

#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace acceptance {

inline virtual_touchpad::TouchpadLayout DetachableTouchpad() {
    virtual_touchpad::TouchpadLayout layout;
    layout.productString = L"Vela Detachable Touchpad";
    return layout;
}

}  // namespace acceptance
