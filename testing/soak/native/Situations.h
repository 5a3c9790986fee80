// The situations in which a plug is pulled, on the simulated platform.
#pragma once

#include <vector>

#include "testing/simulator/Machine.h"
#include "testing/soak/RandomCalls.h"

namespace soak {

struct Situation {
    const char* name;
    // Brings the open session into the situation and pulls the plug. Returns false when a step
    // before that fails.
    bool (*pull)(simulator::Device& touchpad, Random& random);
    // The scan may reject the touchpad halfway; its preparsed data then stays allocated.
    bool mayTurnDown;
};

const std::vector<Situation>& Situations();

// Calls Init and counts the sessions, each of which leaves two events behind.
std::int32_t OpenSession();
std::int64_t SessionsOpened();
// Enables the feature, activates, and lights all four buttons.
bool Light();

}  // namespace soak
