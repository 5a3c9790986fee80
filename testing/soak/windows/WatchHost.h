// A host that leaves its touchpad to a watch, and counts what the watch does.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

#include "include/VelaAgentWatch.hpp"

namespace soak {

using vela_agent::Settings;

class WatchHost {
 public:
    WatchHost();

    void Set(const Settings& settings);
    // Sends the watch the machine's message of a resume, and returns when it has been received.
    void Resume() const;
    // Destroys the watch.
    void Stop() { watch_.reset(); }

    bool IsOpen() const { return watch_->IsOpen(); }
    // Return how often the watch looked for the touchpad, and how often it opened it.
    static std::int64_t Scans();
    static std::int64_t Sessions();
    // Returns how often the host was notified of a touchpad that another program has.
    std::int64_t TimesHeld() const { return held_; }

 private:
    std::atomic<std::int64_t> held_{0};
    std::optional<vela_agent::Watch> watch_;
};

}  // namespace soak
