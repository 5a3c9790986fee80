// Measures how much more a process holds after each of many equal cycles.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace soak {

struct Growth {
    // Per cycle, rounded up.
    std::map<std::string, std::int64_t> handles;
    std::int64_t threads = 0;
    std::int64_t heap = 0;
};

// Runs that many cycles. The first tenth is not counted, because it loads what stays loaded.
Growth MeasureGrowth(std::int64_t cycles, const std::function<void(std::int64_t cycle)>& run);

}  // namespace soak
