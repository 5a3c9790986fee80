/* A host, in C or C++, that has functions of its own with the names of the library's. */
#define VELA_AGENT_NO_PROTOTYPES
#ifndef HEADER
#define HEADER "include/VelaAgent.h"
#endif
#include HEADER

static const char* Init(const char* name) { return name; }
static VelaInitFunction theirInit;
static VelaSetClickModeFunction SetClickMode;

int UseThem(void);
int UseThem(void) {
    if (theirInit == 0 || SetClickMode == 0) return Init("host")[0];
    return theirInit() == VELA_INIT_OPEN && SetClickMode(VELA_CLICK_MODE_ON, 300) != 0;
}
