// Random steps of a host and its touchpads, in any order.
#pragma once

#include <cstdint>

#include "testing/faults/Script.h"

namespace faults {

struct RandomScript {
    std::vector<Step> steps;
    // The touchpads work, no other process opens them and no plug is pulled: without a fault the
    // log has no warning.
    bool calm = false;
};

// Returns the same script for the same seed. The log is on from the first step to the last; no
// session is open before or after them.
RandomScript MakeRandomScript(std::uint64_t seed);

}  // namespace faults
