// The agent's functions: those of the linked-in agent, or those of the loaded library.
#pragma once

#include "include/VelaAgent.h"

namespace soak {

struct Agent {
    // Loads VelaAgent.dll beside this program on Windows, where it stays loaded. Natively the agent
    // is linked in.
    Agent();

#define VELA_SOAK_DECLARE(name) decltype(&::name) name = nullptr;
    VELA_AGENT_FOR_EACH_EXPORT(VELA_SOAK_DECLARE)
#undef VELA_SOAK_DECLARE
};

}  // namespace soak
