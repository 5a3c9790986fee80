#include "testing/bench/ScanInTurns.h"

#include <stdexcept>

#include "hid/HIDDiscovery.h"
#include "testing/bench/BareScan.h"
#include "testing/bench/Stopwatch.h"
#include "touchpad/TandrelHID.h"

namespace bench {

void ScanInTurns(benchmark::State& state, const Row& row) {
    vela::CTandrelHID session;
    const std::wstring found = vela::ScanHIDInformation(&session)->devicePath;
    if (found.empty() || found != BareScan()) {
        throw std::runtime_error("the two scans do not find the same touchpad");
    }
    TakeTurns(
        state, row, [&] { return Timed([&] { vela::ScanHIDInformation(&session); }); },
        [] { return Timed(BareScan); });
}

}  // namespace bench
