// The host's two callbacks. They count, and now and then call into the agent, as hosts do.
#pragma once

#include <cstdint>

#include "testing/soak/Agent.h"

namespace soak {

// Registers both callbacks. They call `agent`'s exports only when `lively`.
void SetCallbacks(const Agent& agent, bool lively);

std::int64_t PressesReported();
std::int64_t StatusesReported();
// Returns the presses of one of the four buttons.
std::int64_t PressesReported(std::uint32_t buttonId);
// Waits until `count` presses of the button were reported in all; gives up after ten seconds.
bool WaitForPresses(std::uint32_t buttonId, std::int64_t count);

}  // namespace soak
