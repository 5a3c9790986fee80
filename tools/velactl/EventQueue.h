// Passes the touchpad's events from the library's threads to the command's: a library thread must
// not wait for a console that the user scrolls.
#pragma once

#include <windows.h>

#include <deque>
#include <mutex>
#include <optional>

#include "VelaAgentWatch.hpp"
#include "tools/velactl/Render.h"

namespace velactl {

class EventQueue {
 public:
    EventQueue();
    ~EventQueue();
    EventQueue(const EventQueue&) = delete;
    EventQueue& operator=(const EventQueue&) = delete;

    // The handlers for a session; they append events with their time. The queue must outlive it.
    vela_agent::Handlers Handlers();
    // The same for a watch, with what happens to the touchpad.
    vela_agent::WatchHandlers WatchHandlers();

    // An auto-reset event, signalled after each append.
    HANDLE Arrival() const { return arrival_; }
    // Removes and returns the oldest event as {"time", "event", ...}, or nothing.
    std::optional<Json> Take();

 private:
    void Append(Json event);

    std::mutex mutex_;  // guards: events_
    std::deque<Json> events_;
    HANDLE arrival_;
};

}  // namespace velactl
