// What the touchpad tells, from the threads of the library to the command's own: those must not
// wait for a console that somebody scrolls.
#pragma once

#include <windows.h>

#include <deque>
#include <mutex>
#include <optional>

#include "VelaAgent.hpp"
#include "tools/velactl/Render.h"

namespace velactl {

class EventQueue {
 public:
    EventQueue();
    ~EventQueue();
    EventQueue(const EventQueue&) = delete;
    EventQueue& operator=(const EventQueue&) = delete;

    // For a session. They append what happened, with the time. The queue has to outlive it.
    vela_agent::Handlers Handlers();

    // Signalled after each event; reset by a wait.
    HANDLE Arrival() const { return arrival_; }
    // The oldest, as {"time", "event", ...}; none when all were taken.
    std::optional<Json> Take();

 private:
    void Append(Json event);

    std::mutex mutex_;  // guards: events_
    std::deque<Json> events_;
    HANDLE arrival_;
};

}  // namespace velactl
