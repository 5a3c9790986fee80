// Loads the built VelaAgent.dll as a host does: by full path, each export by its name.
#pragma once

#include "include/VelaAgent.hpp"

namespace kit {

// Returns the folder of this program.
std::filesystem::path ProgramFolder();

// Tests use this instead of the header's Library, which stays loaded: some unload the DLL.
class AgentDll : public vela_agent::detail::Exports {
 public:
    using Exports::Exports;
    // Loads VelaAgent.dll from the folder of this program.
    AgentDll() : Exports(ProgramFolder() / "VelaAgent.dll") {}
};

}  // namespace kit
