#include "testing/unit/watch/SettingsModel.h"

#include <algorithm>

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
    return kit::LightsOf(settings, {}, breathing);
}

}  // namespace watch_tests
