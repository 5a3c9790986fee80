// The signalled state of an event, or of a file on which an operation without an event runs.
#pragma once

#include <condition_variable>
#include <mutex>

#include <windows.h>

namespace simulator {

// Callers hold the machine's lock, which a wait releases while it sleeps.
class Signal {
 public:
    enum class Reset { Manual, Auto };

    Signal(Reset reset, bool set) : reset_(reset), set_(set) {}

    // Wakes every waiter even for an auto-reset signal, which only one of them then takes: a single
    // wake-up could go to a waiter that has just timed out, and be lost.
    void Set() {
        set_ = true;
        changed_.notify_all();
    }
    void Clear() { set_ = false; }

    // Returns false when the time is up, or when `endTimedWaits` ends a wait with a time limit.
    bool Wait(std::unique_lock<std::mutex>& lock, DWORD milliseconds, const bool& endTimedWaits);
    void ReconsiderWaits() { changed_.notify_all(); }

 private:
    const Reset reset_;
    bool set_;
    std::condition_variable changed_;
};

}  // namespace simulator
