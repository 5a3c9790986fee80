// The four meeting buttons and what the session remembers of each.
#pragma once

#include <cstdint>
#include <unordered_map>

namespace vela {

enum BUTTON_ID : std::uint32_t {
    BUTTON_ID_CAMERA = 0,
    BUTTON_ID_AUDIO = 1,
    BUTTON_ID_CHAT = 2,  // the only button with breathing
    BUTTON_ID_SHARE_SCREEN = 3,
};

// The order in which the session seeds and resets the four entries.
constexpr std::uint32_t kSeededButtonIds[] = {BUTTON_ID_AUDIO, BUTTON_ID_CAMERA, BUTTON_ID_CHAT,
                                              BUTTON_ID_SHARE_SCREEN};

enum BreathingState : std::uint32_t {
    kBreathingRequested = 0,  // not sent to the device yet
    kBreathingRunning = 1,
    kBreathingStopped = 2,
};

struct ButtonState {
    bool present = false;  // the entry belongs to an open session
    bool enabled = false;  // presses are reported and the lights driven
    bool breathingEnabled = false;
    bool lightOn = false;  // which of the button's two lights is lit; told to the host on a press
    bool visible = false;  // the button's lights are shown
    std::uint32_t breathingState = kBreathingStopped;
    // Goes with the record for hosts' diagnostics; no report carries it.
    std::uint8_t breathingLevel = 8;
};

// Looking an unknown id up inserts a default entry, which never reaches a report.
using ButtonTable = std::unordered_map<std::uint32_t, ButtonState>;

}  // namespace vela
