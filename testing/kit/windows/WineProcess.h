// What Wine does with the processes of its machine, as the system below shows it.
#pragma once

#include <string>

namespace kit {

// Returns whether the process whose command line contains `argument` keeps a processor busy. False
// on Windows, and for a process that waits or has ended.
bool IsSpinningOnWine(const std::string& argument);

}  // namespace kit
