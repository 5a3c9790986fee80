// How many runs the tests make. With a sanitizer each takes several times as long, and fewer do.
#pragma once

#include <cstddef>
#include <cstdint>

namespace faults {

struct Effort {
    std::size_t oneFaultIn;        // of the ways in which a call can fail; one at least
    std::uint64_t randomSessions;  // of each of the tests that play some
};

#if defined(__SANITIZE_ADDRESS__)
constexpr Effort kEffort{4, 50};
#elif defined(__SANITIZE_THREAD__)
constexpr Effort kEffort{8, 25};
#else
constexpr Effort kEffort{1, 250};
#endif

}  // namespace faults
