#include "testing/unit/watch/SettingsModel.h"

#include <algorithm>
#include <cstdint>

namespace watch_tests {

void SettingsModel::Press(std::size_t button) {
    const bool toggles = button == VELA_BUTTON_CAMERA || button == VELA_BUTTON_MICROPHONE;
    if (!toggles || settings.activation == VELA_ACTIVE_HOST_SETS_LIGHTS) return;
    settings.buttons[button].light = !settings.buttons[button].light;
}

bool SettingsModel::IsDark() const {
    return !settings.feature || settings.activation > VELA_ACTIVE_HOST_SETS_LIGHTS;
}

bool SettingsModel::IsLit() const {
    const auto isShown = [](const auto& button) { return button.enabled && button.visible; };
    return !IsDark() && std::any_of(settings.buttons.begin(), settings.buttons.end(), isShown);
}

kit::Bytes SettingsModel::Lights(kit::ButtonState::Breathing breathing) const {
    if (IsDark()) return composer_.Blank();
    kit::ButtonStates states;
    for (std::size_t i = 0; i < settings.buttons.size(); ++i) {
        kit::ButtonState& state = states[static_cast<std::uint32_t>(i)];
        state.enabled = settings.buttons[i].enabled;
        state.visible = settings.buttons[i].visible;
        state.lightOn = settings.buttons[i].light;
        state.breathingEnabled = settings.chatBreathingEnabled;
        if (settings.chatBreathing) state.breathing = breathing;
    }
    return composer_.Lights(states, settings.brightness);
}

}  // namespace watch_tests
