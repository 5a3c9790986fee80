// The click mode, one value of a feature report. On the calling thread, straight to the device.
#pragma once

#include <cstdint>

#include "touchpad/OpenTouchpad.h"

namespace vela {

// mode 0 writes the value 0, mode 1 writes `value` in the device's own units, any other mode writes
// the feature report back as it was read. True when it was written. False, with a log line unless
// the touchpad has no feature reports, when it was not; also when the touchpad was closed
// meanwhile.
bool SetClickMode(OpenTouchpad& touchpad, std::uint32_t mode, std::uint16_t value);
// True when the value reads non-zero; false also when it cannot be read, with a log line.
bool GetClickMode(OpenTouchpad& touchpad);

}  // namespace vela
