// The host's two callbacks: they count, and now and then call back into the agent, as hosts do.
#pragma once

#include <cstdint>

#include "testing/soak/Agent.h"

namespace soak {

// Registers both. From now on they call `agent`'s exports when `lively`.
void SetCallbacks(const Agent& agent, bool lively);

std::int64_t PressesReported();
std::int64_t StatusesReported();
// Of one of the four buttons.
std::int64_t PressesReported(std::uint32_t buttonId);
// Waits, ten seconds at most, until that many of its presses were told in all.
bool WaitForPresses(std::uint32_t buttonId, std::int64_t count);

}  // namespace soak
