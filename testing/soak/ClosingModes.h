// The ways in which a host may close a session whose lights are on.
#pragma once

#include <vector>

#include "testing/soak/Agent.h"
#include "testing/soak/SoakTouchpad.h"

namespace soak {

struct ClosingMode {
    const char* name;
    // Lights the buttons of a session that was just opened.
    void (*light)(const Agent& agent);
    // Makes the host's last calls, UnInit among them, and joins all of the host's threads.
    void (*close)(const Agent& agent, SoakTouchpad& touchpad);
};

const std::vector<ClosingMode>& ClosingModes();

}  // namespace soak
