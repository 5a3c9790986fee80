// What Wine does with the processes of its machine, as the system below shows it.
#pragma once

#include <string>

namespace kit {

// Returns whether the process whose command line contains `argument` hangs in Wine itself: it keeps
// a processor busy, or its first thread waits for a mutex of the C library below Wine. A thread
// that waits for an object or a lock of the platform does neither. False on Windows, and for a
// process that has ended.
bool HangsInWine(const std::string& argument);

}  // namespace kit
