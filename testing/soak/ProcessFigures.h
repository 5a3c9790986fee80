// Measures what this process holds, which must not grow.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace soak {

// Counts the open handles by kind: "File", "Event", "Mutant" (a mutex), ...
std::map<std::string, std::int64_t> OpenHandles();
std::int64_t ThreadCount();
// Returns the bytes that are allocated on the heap.
std::int64_t HeapInUse();

// Ends the process without running destructors. After a session with an active detachable touchpad
// the heartbeat's joinable thread object would end it abnormally.
[[noreturn]] void LeaveAtOnce(int exitCode);

}  // namespace soak
