// The agent's scan of the machine as it is, in turns with its platform calls alone.
#pragma once

#include "testing/bench/Row.h"

namespace bench {

constexpr char kScanPeer[] = "its platform calls";

void ScanInTurns(benchmark::State& state, const Row& row);

}  // namespace bench
