// The handles that this process has open, by the kind of object.
#pragma once

#include <map>
#include <string>

namespace kit {

// Keys are the system's names: "File", "Mutant" (a mutex), "Thread", "Event", "Semaphore"...
std::map<std::wstring, int> OpenHandles();

}  // namespace kit
