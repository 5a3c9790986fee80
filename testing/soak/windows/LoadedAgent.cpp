#include "testing/kit/windows/AgentDll.h"
#include "testing/soak/Agent.h"

namespace soak {

Agent::Agent() {
    const kit::AgentDll library;
#define VELA_SOAK_TAKE(name) this->name = library.name;
    VELA_AGENT_FOR_EACH_EXPORT(VELA_SOAK_TAKE)
#undef VELA_SOAK_TAKE
}

}  // namespace soak
