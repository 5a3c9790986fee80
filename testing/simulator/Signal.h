// What can be waited on: an event, or a file while an operation without an event runs on it.
#pragma once

#include <condition_variable>
#include <mutex>

#include <windows.h>

namespace simulator {

// Used under the machine's lock, which a wait gives up while it sleeps.
class Signal {
 public:
    enum class Reset { Manual, Auto };

    Signal(Reset reset, bool set) : reset_(reset), set_(set) {}

    // Every waiter is woken even for an auto-reset signal, which only one of them then takes: a
    // single wake-up could go to a waiter whose time is up, and be lost.
    void Set() {
        set_ = true;
        changed_.notify_all();
    }
    void Clear() { set_ = false; }

    // False when the time is up, or a wait with a time limit is to end early.
    bool Wait(std::unique_lock<std::mutex>& lock, DWORD milliseconds, const bool& endTimedWaits);
    void ReconsiderWaits() { changed_.notify_all(); }

 private:
    const Reset reset_;
    bool set_;
    std::condition_variable changed_;
};

}  // namespace simulator
