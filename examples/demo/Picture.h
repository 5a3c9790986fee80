// The touchpads as small coloured pictures for a terminal.
#pragma once

#include <cstdint>
#include <string>

namespace demo {

enum class Breathing : std::uint8_t { None = 0, Starts = 8, GoesOn = 15 };

// The state according to the last light report: the brightness of each light, 0 = dark.
struct LightState {
    bool isPluggedIn = true;
    std::uint8_t cameraOff = 0;
    std::uint8_t cameraOn = 0;
    std::uint8_t microphoneOff = 0;
    std::uint8_t microphoneOn = 0;
    std::uint8_t chat = 0;
    std::uint8_t shareScreen = 0;
    std::uint8_t breathing = 0;  // a Breathing value
};

// Returns one line in ANSI colours, ended by a newline.
std::string Picture(const LightState& lights);
// Returns the same for the strength of a haptic touchpad's feedback, 0 to 100.
std::string HapticPicture(std::uint8_t intensity);

}  // namespace demo
