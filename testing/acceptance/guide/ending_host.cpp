// A host that returns from main with an exit code of its own after it had the touchpad active.
#include <chrono>
#include <filesystem>
#include <thread>

#include "include/VelaAgentWatch.hpp"
#include "testing/kit/windows/AgentDll.h"

int main() {
    const vela_agent::Library library(kit::ProgramFolder() / L"VelaAgent.dll");
    vela_agent::Watch watch(library);
    watch.Change([](vela_agent::Settings& settings) {
        settings.activation = VELA_ACTIVE;
        settings.feature = true;
    });
    while (!watch.IsOpen()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return 42;
}
