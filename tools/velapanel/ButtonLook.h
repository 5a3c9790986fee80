// The look of one of the four buttons according to the last light report.
#pragma once

#include <string>

#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "tools/velapanel/Action.h"
#include "tools/velapanel/Palette.h"

namespace velapanel {

struct ButtonLook {
    Colour light;            // of its symbol
    double level = 0;        // of the light, 0 dark to 1
    bool isCrossed = false;  // the light for off is lit
    std::wstring caption;    // its state as text
};

// `seconds` is the time since the breath began.
ButtonLook LookOf(Action button, const virtual_touchpad::Lights& lights, double seconds);

}  // namespace velapanel
