// One harmless call of every export except UnInit.
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

// The calls are in alphabetical order. The agent's logger must run, as one of them nests it.
const std::vector<ExportCall>& EveryExportButUnInit();

// Makes all calls in order; returns texts such as "IsVelaPresent 1".
std::vector<std::string> CallEveryExportButUnInit(AgentDll& agent);

}  // namespace acceptance
