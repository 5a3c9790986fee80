// Runs a meeting in which everything happens at once: host threads call at random, buttons are
// pressed at full speed, plugs are pulled, writes stick, sessions and the log start and stop.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

#include "testing/soak/LogSegments.h"
#include "testing/soak/SessionOwner.h"
#include "testing/soak/SoakTouchpad.h"

namespace soak {

struct StormFigures {
    std::int64_t calls = 0;
    std::int64_t presses = 0;
    std::int64_t pullings = 0;
};

class Storm {
 public:
    Storm(const Agent& agent, SoakTouchpad& touchpad, SessionOwner& owner, LogSegments& log)
        : agent_(agent), touchpad_(touchpad), owner_(owner), log_(log) {}

    // Runs for that long. Afterwards no thread of the host is left, the touchpad is plugged in,
    // writes go through, and the session has been open for a while.
    void Run(std::chrono::milliseconds duration);

    const StormFigures& Figures() const { return figures_; }

 private:
    void Press(Allowance& allowance);
    void PullPlugs(const std::atomic<bool>& goOn);
    void OpenAndClose(const std::atomic<bool>& goOn);

    const Agent& agent_;
    SoakTouchpad& touchpad_;
    SessionOwner& owner_;
    LogSegments& log_;
    StormFigures figures_;
};

}  // namespace soak
