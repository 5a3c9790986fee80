// Closing while the touchpad does not end a write, on the simulated platform.
#pragma once

#include <cstdint>

namespace soak {

enum class Stuck {
    OneWrite,    // the one in flight; those that the closing makes go through
    EveryWrite,  // the touchpad takes nothing any more
};

struct StuckClosings {
    std::int64_t cycles = 0;
    std::int64_t wrong = 0;
    // The time limits of all writes that ran into theirs, the one in flight included, added up: the
    // closing took that long at most. Simulated; nothing really waits.
    std::int64_t longestMs = 0;
};

StuckClosings CloseWithStuckWrites(Stuck stuck, std::int64_t cycles);

}  // namespace soak
