#include <windows.h>

#include "VelaAgent.hpp"
#include "tools/velactl/CommandLine.h"
#include "tools/velactl/Text.h"

int wmain(int argc, wchar_t** argv) {
    SetConsoleOutputCP(CP_UTF8);
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(velactl::Utf8(argv[i]));
    // A detachable touchpad leaves a thread of the library running.
    vela_agent::LeaveProcess(velactl::RunCommandLine(std::move(arguments)));
}
