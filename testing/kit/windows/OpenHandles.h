// Counts this process's open handles by the kind of object.
#pragma once

#include <map>
#include <string>

namespace kit {

// Returns the counts by the system's names: "File", "Mutant" (a mutex), "Thread", "Event", ...
std::map<std::wstring, int> OpenHandles();

}  // namespace kit
