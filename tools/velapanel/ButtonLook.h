// How one of the four buttons looks, from what the last light report says of it.
#pragma once

#include <string>

#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "tools/velapanel/Action.h"
#include "tools/velapanel/Palette.h"

namespace velapanel {

struct ButtonLook {
    Colour light;            // of its symbol
    double level = 0;        // of the light, 0 dark to 1
    bool isCrossed = false;  // the light for off is the one that is lit
    std::wstring caption;    // its state in words
};

// seconds: since the breath began.
ButtonLook LookOf(Action button, const virtual_touchpad::Lights& lights, double seconds);

}  // namespace velapanel
