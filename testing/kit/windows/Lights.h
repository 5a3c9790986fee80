// The states of a touchpad's lights that tests pass through, and a description in words, which
// tests compare and failures print.
#pragma once

#include <algorithm>
#include <string>

#include "testing/virtual-touchpad/control/TouchpadControl.h"

namespace kit {

// The lights after LightAll, and with the buttons' state after Init.
constexpr char kAllLit[] =
    "camera 3/0 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0";
constexpr char kAllDark[] = "camera 0/0 microphone 0/0 chat 0 share screen 0, active , breathing 0";

// Camera and microphone have two numbers: the light for off, then the one for on.
inline std::string Describe(const virtual_touchpad::Lights& lights) {
    const auto text = [&](std::uint16_t usage) { return std::to_string(lights.Brightness(usage)); };
    std::string active;
    for (const std::uint16_t usage : lights.active) active += std::to_string(usage);
    return "camera " + text(0x21) + "/" + text(0x20) + " microphone " + text(0x27) + "/" +
           text(0x26) + " chat " + text(0x24) + " share screen " + text(0x22) + ", active " +
           active + ", breathing " + std::to_string(lights.breathing);
}

inline bool AllFourLit(const virtual_touchpad::Lights& lights) {
    return Describe(lights) == kAllLit;
}

// Returns whether no light of any layout is lit.
inline bool AllDark(const virtual_touchpad::Lights& lights) {
    return lights.active.empty() && lights.breathing == 0 &&
           std::all_of(lights.brightness.begin(), lights.brightness.end(),
                       [](const auto& light) { return light.second == 0; });
}

}  // namespace kit
