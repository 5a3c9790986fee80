// What this process holds, for seeing that it stays level.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace soak {

// Open handles by kind: "File", "Event", "Mutant" (a mutex), ...
std::map<std::string, std::int64_t> OpenHandles();
std::int64_t ThreadCount();
// In bytes that are allocated on the heap.
std::int64_t HeapInUse();

// For a process that had a detachable touchpad active: leaves without the end of the library, which
// its joinable heartbeat would turn into an abnormal one.
[[noreturn]] void LeaveAtOnce(int exitCode);

}  // namespace soak
