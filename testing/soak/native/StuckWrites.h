// Closes sessions while the touchpad does not complete a write, on the simulated platform.
#pragma once

#include <cstdint>

namespace soak {

enum class Stuck {
    OneWrite,    // the write in flight; those of the closing complete
    EveryWrite,  // all later writes too
};

struct StuckClosings {
    std::int64_t cycles = 0;
    std::int64_t wrong = 0;
    // The sum of the time limits of all expired writes, including the one in flight: the longest
    // that the closing may take. The time is simulated; nothing really waits.
    std::int64_t longestMs = 0;
};

StuckClosings CloseWithStuckWrites(Stuck stuck, std::int64_t cycles);

}  // namespace soak
