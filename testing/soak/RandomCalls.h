// A host's calls of the exports at random, within what the header allows to any thread at any time.
//
// Opening and closing are the work of one thread each (SessionOwner, LogSegments) and not in here.
#pragma once

#include <cstdint>
#include <random>

#include "testing/soak/Agent.h"

namespace soak {

using Random = std::mt19937;

// A random call's brightness is below it, so that a report with more was not made by one.
constexpr std::uint32_t kBrighterThanStorms = 128;

// Below `count`.
inline std::uint32_t Below(Random& random, std::uint32_t count) {
    return static_cast<std::uint32_t>(random()) % count;
}

// One call of an export with random arguments. Any thread, inside a callback as well.
void MakeRandomCall(const Agent& agent, Random& random);

// How often those calls went through the machine's devices, for the haptic touchpad.
std::int64_t HapticScans();

// The call whose log line tells which thread of the host made it, and when in its order.
struct Mark {
    unsigned thread = 0;
    std::uint32_t number = 0;

    // As a button id, one that drives no light.
    std::uint32_t ButtonId() const { return kFirstId | thread << kNumberBits | number; }
    static Mark OfButtonId(std::uint32_t id) {
        return {(id ^ kFirstId) >> kNumberBits, id & ((1U << kNumberBits) - 1)};
    }
    static bool IsMark(std::uint32_t id) { return id >= kFirstId && id < kFirstId << 1U; }

    static constexpr std::uint32_t kFirstId = 0x40000000;
    static constexpr unsigned kNumberBits = 24;
};

}  // namespace soak
