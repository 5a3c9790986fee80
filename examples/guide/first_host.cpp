#include <cstdio>
#include <exception>
#include <filesystem>

#include "VelaAgentWatch.hpp"

// The DLL of the program's own folder and no other.
static std::filesystem::path AgentPath() {
    wchar_t program[1024] = {};
    GetModuleFileNameW(nullptr, program, 1024);
    return std::filesystem::path(program).replace_filename(L"VelaAgent.dll");
}

// A folder that exists and that only the user can write to.
static std::filesystem::path LogFolder() {
    wchar_t folder[1024] = {};
    GetEnvironmentVariableW(L"LOCALAPPDATA", folder, 1024);
    std::filesystem::path own = std::filesystem::path(folder) / L"MyHost";
    std::filesystem::create_directories(own);
    return own;
}

static void Print(const char* text) {
    std::printf("%s\n", text);
    std::fflush(stdout);
}

int main() {
    try {
        const vela_agent::Library library(AgentPath());
        const vela_agent::Logger logger(library, LogFolder());
        vela_agent::WatchHandlers handlers;
        handlers.onPress = [](VelaButton button, bool newLight) {
            std::printf("button %d pressed, its light goes %s\n", button, newLight ? "on" : "off");
            std::fflush(stdout);
        };
        handlers.onFound = [] { Print("press a button of the touchpad; Enter leaves"); };
        handlers.onLost = [] { Print("the touchpad is gone"); };
        vela_agent::Watch watch(library, handlers);
        watch.Change([](vela_agent::Settings& settings) {
            settings.activation = VELA_ACTIVE;
            settings.feature = true;
            for (vela_agent::ButtonSettings& button : settings.buttons) {
                button = {true, true, false};  // enabled, visible, light
            }
        });
        std::getchar();
        return 0;
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
}
