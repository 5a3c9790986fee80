// How each platform call can fail on a real machine.
#pragma once

#include <string>
#include <vector>

#include "testing/faults/CallWatch.h"
#include "testing/simulator/Calls.h"

namespace faults {

// Every failure that this call can give; empty for a call that cannot fail.
std::vector<simulator::Fault> PlausibleFaults(const WatchedCall& call);

// "error 5", "result 258 with error 997".
std::string ToText(const simulator::Fault& fault);

}  // namespace faults
