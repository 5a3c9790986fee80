// The four meeting buttons and what the session remembers of each.
#pragma once

#include <cstddef>
#include <cstdint>

#include "touchpad/Relaxed.h"

namespace vela {

enum BUTTON_ID : std::uint32_t {
    BUTTON_ID_CAMERA = 0,
    BUTTON_ID_AUDIO = 1,
    BUTTON_ID_CHAT = 2,  // the only button with breathing
    BUTTON_ID_SHARE_SCREEN = 3,
};
constexpr std::size_t kMeetingButtonCount = 4;

// The order in which the session seeds and resets the four entries.
constexpr std::uint32_t kSeededButtonIds[] = {BUTTON_ID_AUDIO, BUTTON_ID_CAMERA, BUTTON_ID_CHAT,
                                              BUTTON_ID_SHARE_SCREEN};

enum BreathingState : std::uint32_t {
    kBreathingRequested = 0,  // not sent to the device yet
    kBreathingRunning = 1,
    kBreathingStopped = 2,
};

// The state of one button. Reports are composed from it while the host changes it.
struct ButtonState {
    Relaxed<bool> present = false;  // the entry belongs to an open session
    Relaxed<bool> enabled = false;  // presses are reported and the lights driven
    Relaxed<bool> breathingEnabled = false;
    Relaxed<bool> lightOn = false;  // which of the two lights is lit; a press reports the opposite
    Relaxed<bool> visible = false;  // the button's lights are shown
    Relaxed<std::uint32_t> breathingState = kBreathingStopped;
    Relaxed<std::uint8_t> breathingLevel = 8;  // no report carries it
};

}  // namespace vela
