// A library in place of VelaAgent.dll, for results that a virtual touchpad cannot bring about in
// another process: Init returns what the environment says, one digit for each call and the last one
// from then on, and adds a letter to the file that it names; the touchpads are present, and every
// other function returns 0. Functions without parameters stand in for those with some: the calling
// convention lets the caller clean up.
#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string_view>

#define VELA_AGENT_NO_PROTOTYPES
#include "VelaAgent.h"

static std::int32_t ResultOfInit() {
    static std::atomic<std::size_t> before{0};
    if (const char* const calls = std::getenv("VELA_STAND_IN_INIT_CALLS")) {
        std::ofstream(calls, std::ios::app) << 'I';
    }
    const char* const variable = std::getenv("VELA_STAND_IN_INIT");
    if (variable == nullptr) return VELA_INIT_NOT_FOUND;
    const std::string_view results = variable;
    return results[std::min(before++, results.size() - 1)] - '0';
}

static std::int32_t ResultOf(std::string_view name) {
    if (name == "IsVelaPresent" || name == "IsHapticTPPresent") return 1;
    return name == "Init" ? ResultOfInit() : 0;
}

#define VELA_STAND_IN(name) \
    extern "C" std::int32_t name() { return ResultOf(#name); }

VELA_AGENT_FOR_EACH_EXPORT(VELA_STAND_IN)
