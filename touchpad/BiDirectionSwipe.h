// The swipe gesture in both directions, which one family of touchpads once lacked.
#pragma once

#include "hid/HIDInformation.h"

namespace vela {

// Looks at nothing but the record. A touchpad of any other family counts as supporting the gesture.
bool SupportsBiDirectionSwipe(const CHIDInformation& information);

}  // namespace vela
