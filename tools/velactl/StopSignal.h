// A wait that Ctrl+C or closing the console ends, so that the touchpad is closed before the program
// ends.
#pragma once

#include <windows.h>

#include <chrono>

namespace velactl {

constexpr std::chrono::milliseconds kForEver{-1};

class StopSignal {
 public:
    // Makes Ctrl+C end the wait instead of the process, until the process ends. One at a time.
    StopSignal();

    // Returns true when the user stops the program, false when the time is over.
    bool WaitFor(std::chrono::milliseconds time) const;
    // Does the same, but returns early when `event` is signalled.
    enum Outcome { kStopped, kTimeOver, kSignalled };
    Outcome WaitFor(std::chrono::milliseconds time, HANDLE event) const;
};

}  // namespace velactl
