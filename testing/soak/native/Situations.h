// Plugs pulled in the middle of things, on the simulated platform.
#pragma once

#include <vector>

#include "testing/simulator/Machine.h"
#include "testing/soak/RandomCalls.h"

namespace soak {

struct Situation {
    const char* name;
    // With the session open: brings it there and pulls the plug. False when something on the way
    // was not as it has to be.
    bool (*pull)(simulator::Device& touchpad, Random& random);
    // The scan may turn the touchpad down half read; its parsed descriptor stays allocated then.
    bool mayTurnDown;
};

const std::vector<Situation>& Situations();

// Init, counted: every session leaves two events behind.
std::int32_t OpenSession();
std::int64_t SessionsOpened();
// All four buttons lit, the host's switches on.
bool Light();

}  // namespace soak
