// The output usages that drive each button's lights.
#pragma once

#include "touchpad/ButtonState.h"
#include "touchpad/TouchpadUsages.h"

namespace vela {

struct LedControl {
    std::uint32_t buttonId;
    USAGE firstLight;   // lit while the button's light is off
    USAGE secondLight;  // lit while it is on; equals firstLight when there is one light
    USAGE active;

    constexpr bool HasTwoLights() const { return firstLight != secondLight; }
};

// Reports are composed in this order.
constexpr LedControl LedControlTable[] = {
    {BUTTON_ID_CAMERA, USAGE_CAMERA_LED_OFF, USAGE_CAMERA_LED_ON, USAGE_CAMERA_ACTIVE},
    {BUTTON_ID_AUDIO, USAGE_AUDIO_LED_OFF, USAGE_AUDIO_LED_ON, USAGE_AUDIO_ACTIVE},
    {BUTTON_ID_CHAT, USAGE_CHAT_LED, USAGE_CHAT_LED, USAGE_CHAT_ACTIVE},
    {BUTTON_ID_SHARE_SCREEN, USAGE_SHARE_SCREEN_LED, USAGE_SHARE_SCREEN_LED,
     USAGE_SHARE_SCREEN_ACTIVE},
};

}  // namespace vela
