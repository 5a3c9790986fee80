// Opens and closes the session on one thread of a host, and measures how long closing takes.
#pragma once

#include <chrono>
#include <cstdint>

#include "testing/soak/SoakTouchpad.h"
#include "testing/soak/Agent.h"

namespace soak {

// The time limit of a write in flight, and so of the closing that waits for it.
constexpr std::chrono::milliseconds kLongestClosing{30000};

class SessionOwner {
 public:
    SessionOwner(const Agent& agent, SoakTouchpad& touchpad) : agent_(agent), touchpad_(touchpad) {}

    void Open(bool livelyCallbacks);
    void Close();
    // Closes with the touchpad plugged in and no write held, and returns whether it is dark
    // afterwards. One that got no light report since `ForgetWritten` counts as dark.
    bool CloseAtRest();
    void IsPresent();
    // Returns whether a session is open on the touchpad that is plugged in now.
    bool Reaches() const { return open_ && unplugged_ == touchpad_.Unplugged(); }

    std::int64_t Sessions() const { return sessions_; }
    // Counts the scans of the devices: each leaves the preparsed data of those that it rejects.
    std::int64_t Scans() const { return scans_; }
    std::chrono::milliseconds LongestClosing() const { return longestClosing_; }

 private:
    const Agent& agent_;
    SoakTouchpad& touchpad_;
    bool open_ = false;
    unsigned unplugged_ = 0;
    std::int64_t sessions_ = 0;
    std::int64_t scans_ = 0;
    std::chrono::milliseconds longestClosing_{0};
};

}  // namespace soak
