// Counts heap allocations, except those inside the simulated platform.
#pragma once

#include <cstddef>

namespace bench {

std::size_t AllocationsOfAllThreads();
std::size_t AllocationsOfThisThread();

// While an object lives, its thread's allocations are not counted as the agent's.
class Uncounted {
 public:
    Uncounted();
    ~Uncounted();
    Uncounted(const Uncounted&) = delete;
    Uncounted& operator=(const Uncounted&) = delete;
};

}  // namespace bench
