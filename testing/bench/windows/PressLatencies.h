// Measures the way from the touchpad to the host and back: the agent's session and a bare loop of
// the same reads and writes take turns on one virtual touchpad.
#pragma once

#include <optional>

#include "testing/bench/Samples.h"
#include "testing/bench/windows/Host.h"

namespace bench {

struct Latencies {
    Samples seen;  // until the host has the press
    Samples lit;   // until the device has the light report
};

struct LatencyRow {
    const char* what;
    const wchar_t* product;
    bool logged;
    const char* peer;
    WritesOn peerWritesOn;
    Queries peerQueries;
    Samples Latencies::*latency;
    std::optional<double> target;
};

// All rows of a process are of the same kind of touchpad: the library keeps the first one's product
// string.
void RegisterLatencies(const LatencyRow& wanted);

}  // namespace bench
