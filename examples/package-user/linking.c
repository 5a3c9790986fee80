/* A host that links the import library. */
#include <stdio.h>

#include "VelaAgent.h"
#include "VelaAgentVersion.h"

int main(void) {
    printf("linking %s: brightness %u, %s\n", VELA_AGENT_VERSION, (unsigned)GetVelaBrightness(),
           IsActivated() ? "active" : "not active");
    return UnInit();
}
