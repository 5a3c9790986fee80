// A meeting that goes wrong in every way at once: host threads call at random, the user presses as
// fast as the touchpad takes it, plugs are pulled, writes stick, sessions and the log come and go.
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

    // All of it for that long. Then no thread of the host's is left, the touchpad is plugged in,
    // writes go through, and the session is open and has been for a while.
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
