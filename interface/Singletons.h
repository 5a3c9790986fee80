// The process-wide sessions behind the exports.
#pragma once

#include "haptic/HapticTouchpadHID.h"
#include "touchpad/TandrelHID.h"

namespace vela {

// Made on first use, destroyed at process exit.
CTandrelHID& TouchpadSession();
CHapticTouchpadHID& HapticTouchpadSession();

}  // namespace vela
