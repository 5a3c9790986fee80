// A host that loads the DLL beside it.
#include "VelaAgent.hpp"

#include <cstdio>

#include "VelaAgentVersion.h"

int main() {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const auto folder = std::filesystem::path(program).parent_path();
    try {
        const vela_agent::Library library(folder / "VelaAgent.dll");
        std::printf("loading %s: brightness %u, %s\n", VELA_AGENT_VERSION,
                    static_cast<unsigned>(library.GetVelaBrightness()),
                    library.IsActivated() != 0 ? "active" : "not active");
    } catch (const vela_agent::LoadError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
