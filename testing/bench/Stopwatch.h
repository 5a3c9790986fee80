// The clock of all measurements.
#pragma once

#include <chrono>

namespace bench {

inline double Nanoseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::nano>(now).count();
}

// Returns the nanoseconds of one call.
template <typename Work>
double Timed(Work&& work) {
    const double start = Nanoseconds();
    work();
    return Nanoseconds() - start;
}

}  // namespace bench
