// The process-wide sessions behind the exports.
#pragma once

#include "haptic/HapticTouchpadHID.h"
#include "touchpad/TandrelHID.h"

namespace vela {

// Both are created on first use and destroyed at process exit.
CTandrelHID& TouchpadSession();
CHapticTouchpadHID& HapticTouchpadSession();

}  // namespace vela
