// A touchpad whose product string marks it as detachable.
#pragma once

#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace acceptance {

inline virtual_touchpad::TouchpadLayout DetachableTouchpad() {
    virtual_touchpad::TouchpadLayout layout;
    layout.productString = L"Vela Detachable Touchpad";
    return layout;
}

}  // namespace acceptance
