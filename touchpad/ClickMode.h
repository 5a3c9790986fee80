// The click mode, one value of a feature report. The device is accessed on the calling thread.
#pragma once

#include <cstdint>

#include "touchpad/OpenTouchpad.h"

namespace vela {

// Mode 0 writes the value 0, mode 1 writes `value` in the device's own units, any other mode writes
// the feature report back as it was read. Returns whether the report was written. A failure is
// logged, unless the touchpad has no feature reports; a touchpad that was closed meanwhile is a
// failure.
bool SetClickMode(OpenTouchpad& touchpad, std::uint32_t mode, std::uint16_t value);
// Returns whether the value is not 0; a failed read, logged likewise, returns false.
bool GetClickMode(OpenTouchpad& touchpad);

}  // namespace vela
