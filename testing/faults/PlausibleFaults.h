// The ways in which each platform call can fail on a real machine.
#pragma once

#include <string>
#include <vector>

#include "testing/faults/CallWatch.h"
#include "testing/simulator/Calls.h"

namespace faults {

// Returns every failure of this call; empty for a call that cannot fail.
std::vector<simulator::Fault> PlausibleFaults(const WatchedCall& call);

// Returns "error 5" or "result 258 with error 997".
std::string ToText(const simulator::Fault& fault);

}  // namespace faults
