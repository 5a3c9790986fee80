// The example host once more, in C++ and with a watch: the touchpad may be unplugged, plugged in
// again and opened by others at any time, and the host only says what it wants to be shown.
//
//   watching_host LOGDIRECTORY
//
// The directory, the lines on standard input and those on standard output are as in host.c; "join"
// does not fail without a touchpad, as one may come.
#include <cstddef>
#include <cstdio>
#include <exception>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

#include "VelaAgentWatch.hpp"

namespace {

void Print(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

// Handlers are called on threads of the library and of the watch. A real host posts to its own.
void OnPress(VelaButton button, bool newLight) {
    constexpr const char* kNames[] = {"camera", "microphone", "chat", "share screen"};
    const auto id = static_cast<std::size_t>(button);
    const std::string name = id < std::size(kNames) ? kNames[id] : "unknown";
    Print("callback: " + name + " pressed, light to be " + (newLight ? "on" : "off"));
}

void OnStatus(std::uint32_t status) {
    const char* const text = status == VELA_STATUS_TEMPORARILY_DISABLED ? "disabled by a gesture"
                             : status == VELA_STATUS_DISABLED           ? "disabled"
                             : status == VELA_STATUS_DEACTIVATED        ? "deactivated"
                                                                        : "normal";
    Print("callback: status " + std::to_string(status) + " (" + text + ")");
}

vela_agent::WatchHandlers PrintingHandlers() {
    vela_agent::WatchHandlers handlers;
    handlers.onPress = OnPress;
    handlers.onStatus = OnStatus;
    handlers.onFound = [] { Print("callback: touchpad found"); };
    handlers.onLost = [] { Print("callback: touchpad lost"); };
    handlers.onHeldByOther = [] { Print("callback: the touchpad is held by another process"); };
    return handlers;
}

void Join(vela_agent::Settings& settings) {
    settings.activation = VELA_ACTIVE;
    settings.feature = true;
    settings.brightness = 200;
    settings.chatBreathingEnabled = true;
    for (vela_agent::ButtonSettings& button : settings.buttons) button = {true, true, false};
}

// The haptic session is independent of the watch's.
void ShowHapticLevel(const vela_agent::Library& library, const std::string& newLevel) {
    try {
        vela_agent::Haptics haptics(library);
        Print("answer: haptic touchpad present, level " + std::to_string(haptics.Level()));
        if (newLevel.empty()) return;
        const bool wasSet = haptics.SetLevel(static_cast<std::uint32_t>(std::stoul(newLevel)));
        Print(std::string("answer: level ") + (wasSet ? "set" : "not set") + ", reads " +
              std::to_string(haptics.Level()));
    } catch (const vela_agent::OpenError& error) {
        Print(std::string("answer: ") + error.what());
    }
}

class Host {
 public:
    explicit Host(vela_agent::Library library) : library_(std::move(library)) {}

    void Run(const std::string& command) {
        if (command == "join") {
            watch_.emplace(library_, PrintingHandlers());
            watch_->Change(Join);
        }
        if (command == "chat" || command == "read") SetChatBreathing(command == "chat");
        if (command.rfind("haptic", 0) == 0) ShowHapticLevel(library_, command.substr(6));
        if (command == "leave") watch_.reset();
    }

 private:
    void SetChatBreathing(bool breathes) {
        if (!watch_) return;
        watch_->Change([=](vela_agent::Settings& settings) { settings.chatBreathing = breathes; });
    }

    const vela_agent::Library library_;
    std::optional<vela_agent::Watch> watch_;  // during the meeting
};

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: watching_host LOGDIRECTORY\n");
        return 2;
    }
    try {
        wchar_t program[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        const vela_agent::Library library(
            std::filesystem::path(program).replace_filename(L"VelaAgent.dll"));
        const vela_agent::Logger logger(library, argv[1]);
        Print(std::string("host: touchpad ") +
              (library.IsVelaPresent() != 0 ? "present" : "not present"));
        Host host(library);
        std::string command;
        while (command != "leave" && std::getline(std::cin, command)) {
            if (!command.empty() && command.back() == '\r') command.pop_back();
            host.Run(command);
            Print("host: done " + command);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "watching_host: %s\n", error.what());
        return 1;
    }
    return 0;
}
