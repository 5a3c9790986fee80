// Composes the LED report: the whole state of the session in one output report.
#pragma once

#include <cstdint>
#include <vector>

#include "hid/HIDInformation.h"
#include "touchpad/ButtonTable.h"

namespace vela {

// The state that the lights depend on besides the buttons.
struct LedState {
    bool driven = false;          // the feature is on and the touchpad activated; else all is dark
    std::uint8_t brightness = 0;  // of every lit light, 0 (dark) to 255
};

// Fills `report`, which is zeroed and as long as the touchpad's output reports; does nothing when
// the touchpad has none. Failed platform calls are logged and leave their part of the report out.
// Requested breathing is marked as running in `buttons` once a report starts it. Any thread may
// call it.
void UpdateLedCtrl(const CHIDInformation& information, const LedState& state, ButtonTable& buttons,
                   std::vector<BYTE>& report);

}  // namespace vela
