// The agent's functions, of the linked-in agent or of the loaded library, under one roof.
#pragma once

#include "include/VelaAgent.h"

namespace soak {

struct Agent {
    // Natively there is nothing to load; on Windows VelaAgent.dll beside this program is, and
    // stays.
    Agent();

#define VELA_SOAK_DECLARE(name) decltype(&::name) name = nullptr;
    VELA_AGENT_FOR_EACH_EXPORT(VELA_SOAK_DECLARE)
#undef VELA_SOAK_DECLARE
};

}  // namespace soak
