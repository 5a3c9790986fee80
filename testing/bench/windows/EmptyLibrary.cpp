// The agent's exports, doing nothing. Only their names matter: nobody calls them.
#define VELA_AGENT_NO_PROTOTYPES
#include "include/VelaAgent.h"

#define VELA_EMPTY(name) \
    extern "C" void name() {}

VELA_AGENT_FOR_EACH_EXPORT(VELA_EMPTY)
