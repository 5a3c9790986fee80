// The heartbeat of a detachable touchpad, which may lose its state while it is detached: a thread
// of its own sends the state again every 20 seconds.
#pragma once

#include <condition_variable>
#include <functional>
#include <thread>

#include "platform/Mutex.h"

namespace vela {

// Any thread may call any operation.
class Heartbeat {
 public:
    using Beat = std::function<void()>;

    Heartbeat() = default;
    // Ends the process when a thread was started and not joined by another start, as the destructor
    // of std::thread does.
    ~Heartbeat();
    Heartbeat(const Heartbeat&) = delete;
    Heartbeat& operator=(const Heartbeat&) = delete;

    // Allows Start from now on.
    void Permit();
    // Requests the thread, if there is one, to stop and returns at once.
    void Stop();
    // Does the same as Stop, and no thread is started until the next Permit.
    void Forbid();
    // Stops and joins the thread of an earlier start, then starts one that calls `beat` every 20
    // seconds, unless that is forbidden. Throws std::system_error when the thread cannot be
    // started.
    void Start(Beat beat);

 private:
    void HeartbeatThread(const Beat& beat);
    bool WaitForNextBeat();
    bool ClearStop();

    Mutex startMutex_;  // guards: thread_
    std::thread thread_ VELA_GUARDED_BY(startMutex_);
    Mutex mutex_;  // guards: permitted_, stop_; taken under startMutex_
    std::condition_variable_any changed_;
    bool permitted_ VELA_GUARDED_BY(mutex_) = false;
    bool stop_ VELA_GUARDED_BY(mutex_) = false;
};

}  // namespace vela
