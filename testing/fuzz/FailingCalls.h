// Platform calls that fail as an input says.
#pragma once

#include "testing/fuzz/FuzzInput.h"
#include "testing/simulator/Machine.h"

namespace fuzz {

// Makes one of the next calls of a function fail in a way in which it can fail on a real machine.
void FailACall(simulator::Machine& machine, FuzzInput& input);
// Forgets the failures that no call met.
void StopFailing(simulator::Machine& machine);

}  // namespace fuzz
