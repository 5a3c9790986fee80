// At rest, after a storm: the lights are what the host wished last, as the model of a session
// knows.
#pragma once

#include <string>

#include "testing/soak/RandomCalls.h"
#include "testing/soak/SessionOwner.h"
#include "testing/soak/SoakTouchpad.h"

namespace soak {

// Makes known and then random wishes in the session that the storm left, or in a new one where that
// one cannot reach the touchpad, and compares. Empty, or what was different.
std::string CompareLights(const Agent& agent, SoakTouchpad& touchpad, const TouchpadLayout& layout,
                          SessionOwner& owner, Random& random);

}  // namespace soak
