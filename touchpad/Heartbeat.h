// The heartbeat of a detachable touchpad: while its keyboard half was away it may have lost its
// state, so the state is sent again every 20 seconds, on a thread of its own.
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
    // Ends the process when a thread was started and not joined by another start, as the thread
    // object's own end would.
    ~Heartbeat();
    Heartbeat(const Heartbeat&) = delete;
    Heartbeat& operator=(const Heartbeat&) = delete;

    // From here on it may be started.
    void Permit();
    // Tells the thread to stop and returns at once. There may be none.
    void Stop();
    // The same, and none is started until the next Permit.
    void Forbid();
    // Waits for the thread of an earlier start, which it stops, and starts one that calls `beat`
    // every 20 seconds. Does nothing while forbidden. Throws std::system_error when the thread
    // cannot be started.
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
