// The text file for support: the cause first, then all that helps to find another.
#pragma once

#include <string>

#include "tools/velactl/Context.h"
#include "tools/velactl/StopSignal.h"

namespace velactl {

// Runs the checks of doctor and records the machine. The first ten lines tell what is wrong. Throws
// Failure when the user stops the program.
std::string SupportReport(Context& context, const StopSignal& stop);

}  // namespace velactl
