// Makes random calls of the exports that the header allows on any thread at any time.
//
// Opening and closing are left to one thread each (SessionOwner, LogSegments).
#pragma once

#include <cstdint>
#include <random>

#include "testing/soak/Agent.h"

namespace soak {

using Random = std::mt19937;

// Random calls set a lower brightness, so a report with a higher one is not theirs.
constexpr std::uint32_t kBrighterThanStorms = 128;

// Returns a number below `count`.
inline std::uint32_t Below(Random& random, std::uint32_t count) {
    return static_cast<std::uint32_t>(random()) % count;
}

// Calls a random export with random arguments. Any thread may call it, also inside a callback.
void MakeRandomCall(const Agent& agent, Random& random);

// Returns how many of those calls scanned the devices for the haptic touchpad.
std::int64_t HapticScans();

// A call whose log line identifies the host's thread and the call's place in its order.
struct Mark {
    unsigned thread = 0;
    std::uint32_t number = 0;

    // Encodes the mark as a button id, which belongs to no button.
    std::uint32_t ButtonId() const { return kFirstId | thread << kNumberBits | number; }
    static Mark OfButtonId(std::uint32_t id) {
        return {(id ^ kFirstId) >> kNumberBits, id & ((1U << kNumberBits) - 1)};
    }
    static bool IsMark(std::uint32_t id) { return id >= kFirstId && id < kFirstId << 1U; }

    static constexpr std::uint32_t kFirstId = 0x40000000;
    static constexpr unsigned kNumberBits = 24;
};

}  // namespace soak
