#include "testing/kit/SettingsLights.h"

#include <algorithm>

namespace kit {
namespace {

constexpr std::size_t kLightBytes = virtual_touchpad::kActiveBitsOffset + 1;

bool HaveSameLights(const Bytes& a, const Bytes& b) {
    return a.size() >= kLightBytes && b.size() >= kLightBytes &&
           std::equal(a.begin(), a.begin() + kLightBytes, b.begin());
}

}  // namespace

Bytes LightsOf(const vela_agent::Settings& settings, const TouchpadLayout& layout,
               ButtonState::Breathing breathing) {
    const ReportComposer composer(layout);
    const bool isActivated =
        settings.activation == VELA_ACTIVE || settings.activation == VELA_ACTIVE_HOST_SETS_LIGHTS;
    if (!settings.feature || !isActivated) return composer.Blank();
    ButtonStates states;
    for (std::size_t i = 0; i < settings.buttons.size(); ++i) {
        ButtonState& state = states[static_cast<std::uint32_t>(i)];
        state.enabled = settings.buttons[i].enabled;
        state.visible = settings.buttons[i].visible;
        state.lightOn = settings.buttons[i].light;
        state.breathingEnabled = settings.chatBreathingEnabled;
        if (settings.chatBreathing) state.breathing = breathing;
    }
    return composer.Lights(states, settings.brightness);
}

bool ShowsSettings(const Bytes& report, const vela_agent::Settings& settings,
                   const TouchpadLayout& layout) {
    return HaveSameLights(report, LightsOf(settings, layout, ButtonState::Breathing::Requested)) ||
           HaveSameLights(report, LightsOf(settings, layout, ButtonState::Breathing::Running));
}

}  // namespace kit
