// Ways in which a host comes to close a session whose lights are on.
#pragma once

#include <vector>

#include "testing/soak/Agent.h"
#include "testing/soak/SoakTouchpad.h"

namespace soak {

struct ClosingMode {
    const char* name;
    // Lights the buttons of a session that was just opened.
    void (*light)(const Agent& agent);
    // The host's last calls, UnInit among them. No thread of the host's is left afterwards.
    void (*close)(const Agent& agent, SoakTouchpad& touchpad);
};

const std::vector<ClosingMode>& ClosingModes();

}  // namespace soak
