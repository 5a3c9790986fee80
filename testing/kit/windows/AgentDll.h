// The built VelaAgent.dll, loaded as a host loads it: by full path, each export by its name.
#pragma once

#include "include/VelaAgent.hpp"

namespace kit {

// The folder of this program.
std::filesystem::path ProgramFolder();

// Not the header's Library, which stays loaded: some tests unload it.
class AgentDll : public vela_agent::detail::Exports {
 public:
    using Exports::Exports;
    // VelaAgent.dll beside this program.
    AgentDll() : Exports(ProgramFolder() / "VelaAgent.dll") {}
};

}  // namespace kit
