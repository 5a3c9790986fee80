// The built VelaAgent.dll, loaded as a host loads it: by full path, each export by its name.
#pragma once

#include "include/VelaAgent.hpp"

namespace acceptance {

// The folder of this program.
std::filesystem::path ProgramFolder();

class AgentDll : public vela_agent::Library {
 public:
    using Library::Library;
    // VelaAgent.dll beside this program.
    AgentDll() : Library(ProgramFolder() / "VelaAgent.dll") {}
};

}  // namespace acceptance
