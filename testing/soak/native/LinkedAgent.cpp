#include "testing/soak/Agent.h"

namespace soak {

Agent::Agent() {
#define VELA_SOAK_TAKE(name) this->name = &::name;
    VELA_AGENT_FOR_EACH_EXPORT(VELA_SOAK_TAKE)
#undef VELA_SOAK_TAKE
}

}  // namespace soak
