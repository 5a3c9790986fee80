// Ctrl+C, or the closing of the console, as something to wait for: the touchpad is to be closed
// before the program ends.
#pragma once

#include <windows.h>

#include <chrono>

namespace velactl {

constexpr std::chrono::milliseconds kForEver{-1};

class StopSignal {
 public:
    // From now on Ctrl+C only ends the waiting. One at a time; it stays until the process ends.
    StopSignal();

    // True when the user wants an end, false when the time is over.
    bool WaitFor(std::chrono::milliseconds time) const;
    // The same, or earlier when `event` is signalled; tells apart by the result.
    enum Outcome { kStopped, kTimeOver, kSignalled };
    Outcome WaitFor(std::chrono::milliseconds time, HANDLE event) const;
};

}  // namespace velactl
