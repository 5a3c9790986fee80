// A host and touchpads that do anything they can, in any order.
#pragma once

#include <cstdint>

#include "testing/faults/Script.h"

namespace faults {

struct RandomScript {
    std::vector<Step> steps;
    // The touchpads behave, no other process wants them and no plug is pulled: without a fault,
    // nothing is worth a warning.
    bool calm = false;
};

// The same for the same seed. The log is on from the first step to the last, no session is open
// before the first one or after the last one.
RandomScript MakeRandomScript(std::uint64_t seed);

}  // namespace faults
