#include "testing/soak/windows/WatchHost.h"

#include <stdexcept>

#include "testing/kit/windows/AgentDll.h"
#include "testing/virtual-touchpad/control/WaitingCreateFile.h"

namespace soak {
namespace {

VelaInitFunction init = nullptr;  // the library's own
std::atomic<std::int64_t> scans{0};
std::atomic<std::int64_t> sessions{0};

std::int32_t CountedInit() {
    ++scans;
    const std::int32_t result = init();
    if (result == VELA_INIT_OPEN) ++sessions;
    return result;
}

vela_agent::Library CountingLibrary() {
    vela_agent::Library library(kit::ProgramFolder() / "VelaAgent.dll");
    init = library.Init;
    library.Init = CountedInit;
    virtual_touchpad::MakeCreateFileWait(library.Module());
    return library;
}

}  // namespace

WatchHost::WatchHost() {
    vela_agent::WatchHandlers handlers;
    handlers.onHeldByOther = [this] { ++held_; };
    watch_.emplace(CountingLibrary(), handlers);
}

void WatchHost::Set(const Settings& settings) {
    watch_->Change([&](Settings& current) { current = settings; });
}

void WatchHost::Resume() const {
    const HWND window = FindWindowExW(HWND_MESSAGE, nullptr, L"VelaAgentWatch", nullptr);
    if (window == nullptr) throw std::runtime_error("the watch has no window");
    SendMessageW(window, WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
}

std::int64_t WatchHost::Scans() { return scans; }

std::int64_t WatchHost::Sessions() { return sessions; }

}  // namespace soak
