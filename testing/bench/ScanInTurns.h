// Measures the agent's scan of this machine, in turns with its platform calls alone.
#pragma once

#include "testing/bench/Row.h"

namespace bench {

constexpr char kScanPeer[] = "its platform calls";

void ScanInTurns(benchmark::State& state, const Row& row);

}  // namespace bench
