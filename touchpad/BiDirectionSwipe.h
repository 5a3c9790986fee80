// The swipe gesture in both directions, which early firmware of one touchpad family lacks.
#pragma once

#include "hid/HIDInformation.h"

namespace vela {

// Reads only the record. A touchpad of any other family counts as supporting the gesture.
bool SupportsBiDirectionSwipe(const CHIDInformation& information);

}  // namespace vela
