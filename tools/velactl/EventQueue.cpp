#include "tools/velactl/EventQueue.h"

#include "tools/velactl/Names.h"
#include "tools/velactl/Text.h"

namespace velactl {

EventQueue::EventQueue() : arrival_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}

EventQueue::~EventQueue() { CloseHandle(arrival_); }

vela_agent::Handlers EventQueue::Handlers() {
    return {[this](VelaButton button, bool newLight) {
                Append({{"time", LocalTime()},
                        {"event", "press"},
                        {"button", ButtonName(button)},
                        {"newLight", SwitchName(newLight)}});
            },
            [this](std::uint32_t status) {
                Append({{"time", LocalTime()},
                        {"event", "status"},
                        {"status", StatusName(status)},
                        {"number", status}});
            }};
}

vela_agent::WatchHandlers EventQueue::WatchHandlers() {
    const auto append = [this](const char* event) {
        return [this, event] { Append({{"time", LocalTime()}, {"event", event}}); };
    };
    const vela_agent::Handlers session = Handlers();
    return {session.onPress, session.onStatus, append("found"), append("lost"), append("held")};
}

std::optional<Json> EventQueue::Take() {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (events_.empty()) return {};
    Json event = std::move(events_.front());
    events_.pop_front();
    return event;
}

void EventQueue::Append(Json event) {
    const std::lock_guard<std::mutex> lock(mutex_);
    events_.push_back(std::move(event));
    SetEvent(arrival_);
}

}  // namespace velactl
