// Measures how fast the agent's lines reach the file, beside a bare loop that writes the same
// lines.
#pragma once

#include <string>

namespace bench {

void RegisterLinesToFile(const std::string& what, int lines);

}  // namespace bench
