// One harmless call of every export but UnInit, for tests that want them all.
#pragma once

#include <string>
#include <vector>

#include "testing/kit/windows/AgentDll.h"

namespace acceptance {

using namespace kit;

struct ExportCall {
    const char* name;
    std::string (*call)(AgentDll&);  // returns the result in decimal, "-" for none
};

// In the alphabet's order. The agent's logger has to be initialised, as one of them nests it.
const std::vector<ExportCall>& EveryExportButUnInit();

// All of them in turn, as "IsVelaPresent 1".
std::vector<std::string> CallEveryExportButUnInit(AgentDll& agent);

}  // namespace acceptance
