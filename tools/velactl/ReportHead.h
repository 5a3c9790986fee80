// The first lines of the report for support.
#pragma once

#include <string>
#include <vector>

#include "tools/velactl/Checks.h"
#include "tools/velactl/Render.h"

namespace velactl {

// Returns at most ten lines: when and by what the report was made, the failed checks, the one to
// mend first at the front, and how many touchpads match.
std::string ReportHead(const std::vector<NamedResult>& results, const Json& machine);

}  // namespace velactl
