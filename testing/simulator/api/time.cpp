// The machine's clock: the real one, or one that a test stopped.
#include <windows.h>

#include <cerrno>
#include <optional>

#include "testing/simulator/MachineState.h"

using namespace simulator;

namespace {

std::optional<std::tm> StoppedClock() {
    const MachineLock lock;
    return State().stoppedClock;
}

}  // namespace

extern "C" {

__time64_t _time64(__time64_t* time) {
    std::optional<std::tm> stopped = StoppedClock();
    const std::time_t now = stopped ? timegm(&*stopped) : std::time(nullptr);
    if (time != nullptr) *time = now;
    return now;
}

// A stopped clock already holds local time, so the time zone of this machine is not applied.
errno_t _localtime64_s(std::tm* localTime, const __time64_t* time) {
    if (localTime == nullptr || time == nullptr || *time < 0) return EINVAL;
    const std::time_t seconds = *time;
    const std::tm* const converted =
        StoppedClock() ? gmtime_r(&seconds, localTime) : localtime_r(&seconds, localTime);
    return converted != nullptr ? 0 : EINVAL;
}

}  // extern "C"
