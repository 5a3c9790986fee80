// The number of runs of each test: fewer with a sanitizer, where each takes several times as long.
#pragma once

#include <cstddef>
#include <cstdint>

namespace faults {

struct Effort {
    std::size_t oneFaultIn;        // tries each n-th way in which a call can fail, at least one
    std::uint64_t randomSessions;  // for each test of random sessions
};

#if defined(__SANITIZE_ADDRESS__)
constexpr Effort kEffort{4, 50};
#elif defined(__SANITIZE_THREAD__)
constexpr Effort kEffort{8, 25};
#else
constexpr Effort kEffort{1, 250};
#endif

}  // namespace faults
