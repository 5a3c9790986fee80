// The host's settings, with what presses and the touchpad changed of them, and the reports that
// show them.
#pragma once

#include <cstddef>

#include "include/VelaAgentSettings.hpp"
#include "testing/kit/Reports.h"
#include "testing/kit/SettingsLights.h"

namespace watch_tests {

class SettingsModel {
 public:
    vela_agent::Settings settings;

    // Toggles the button's light where the library does.
    void Press(std::size_t button);
    bool IsDark() const;
    // While a button is lit, the settings are known to be set.
    bool IsLit() const;
    kit::Bytes Lights(kit::ButtonState::Breathing breathing) const;
};

}  // namespace watch_tests
