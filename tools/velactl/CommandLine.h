// Runs a command line.
#pragma once

#include <string>
#include <vector>

#include "tools/velactl/ExitCodes.h"

namespace velactl {

// The arguments are UTF-8, without the program's name. Failures are reported on standard error, a
// line each.
ExitCode RunCommandLine(std::vector<std::string> arguments);

}  // namespace velactl
