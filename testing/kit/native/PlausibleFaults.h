// The ways in which each platform call can fail on a real machine.
#pragma once

#include <string>
#include <vector>

#include "testing/simulator/Calls.h"

namespace kit {

// Returns every failure of a call of this function with these arguments; empty for a call that
// cannot fail. Throws std::out_of_range for an unknown function.
std::vector<simulator::Fault> PlausibleFaults(const std::string& function,
                                              const std::string& arguments);

// Returns "error 5" or "result 258 with error 997".
std::string ToText(const simulator::Fault& fault);

}  // namespace kit
