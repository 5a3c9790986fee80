// From the command line to an exit code.
#pragma once

#include <string>
#include <vector>

#include "tools/velactl/ExitCodes.h"

namespace velactl {

// The arguments in UTF-8, without the program's name. Failures are told on standard error, a line
// each.
ExitCode RunCommandLine(std::vector<std::string> arguments);

}  // namespace velactl
