#include "testing/soak/windows/Growth.h"

#include <algorithm>

#include "testing/soak/ProcessFigures.h"

namespace soak {
namespace {

std::int64_t ACycle(std::int64_t more, std::int64_t cycles) {
    return more <= 0 ? more / cycles : (more + cycles - 1) / cycles;
}

}  // namespace

Growth MeasureGrowth(std::int64_t cycles, const std::function<void(std::int64_t cycle)>& run) {
    const std::int64_t warmUp = std::max<std::int64_t>(cycles / 10, 5);
    std::int64_t cycle = 0;
    while (cycle < warmUp) run(++cycle);
    std::map<std::string, std::int64_t> handles = OpenHandles();
    const std::int64_t threads = ThreadCount();
    const std::int64_t heap = HeapInUse();
    while (cycle < cycles) run(++cycle);

    const std::int64_t counted = cycles - warmUp;
    Growth growth;
    growth.heap = ACycle(HeapInUse() - heap, counted);
    growth.threads = ACycle(ThreadCount() - threads, counted);
    for (const auto& [kind, count] : OpenHandles()) {
        growth.handles[kind] = ACycle(count - handles[kind], counted);
    }
    return growth;
}

}  // namespace soak
