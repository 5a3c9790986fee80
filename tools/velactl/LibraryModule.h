// The loaded VelaAgent.dll, beside which the agent's code looks for "Vela.ini".
#pragma once

#include <windows.h>

namespace velactl {

void SetLibraryModule(HMODULE module);

}  // namespace velactl
