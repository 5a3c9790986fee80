// Checks for two states of the touchpad's lights that many tests pass through.
#pragma once

#include <algorithm>

#include "testing/virtual-touchpad/control/TouchpadControl.h"

namespace kit {

// Returns whether all four buttons are shown at the initial brightness, none on, none breathing.
inline bool AllFourLit(const virtual_touchpad::Lights& lights) {
    return lights.Brightness(0x21) == 3 && lights.Brightness(0x20) == 0 &&
           lights.Brightness(0x27) == 3 && lights.Brightness(0x26) == 0 &&
           lights.Brightness(0x24) == 3 && lights.Brightness(0x22) == 3 &&
           lights.active == std::set<std::uint16_t>{1, 2, 3, 4} && lights.breathing == 0;
}

inline bool AllDark(const virtual_touchpad::Lights& lights) {
    return lights.active.empty() && lights.breathing == 0 &&
           std::all_of(lights.brightness.begin(), lights.brightness.end(),
                       [](const auto& light) { return light.second == 0; });
}

}  // namespace kit
