// Checks after a storm that the touchpad shows what the host requested last, according to the
// model of a session.
#pragma once

#include <string>

#include "testing/soak/RandomCalls.h"
#include "testing/soak/SessionOwner.h"
#include "testing/soak/SoakTouchpad.h"

namespace soak {

// Sets a known state in the storm's session, or in a new one when the storm's cannot reach the
// touchpad, then makes random requests and compares the lights. Returns the difference, or "".
std::string CompareLights(const Agent& agent, SoakTouchpad& touchpad, const TouchpadLayout& layout,
                          SessionOwner& owner, Random& random);

}  // namespace soak
