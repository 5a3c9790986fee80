// The file handle of an open touchpad, which one thread closes while others use it.
//
// Windows reuses the value of a closed handle for the next object that the process opens: a thread
// that still used the old value would write to that object. Rundown protection, as in drivers,
// prevents this: closing waits for the calls in progress, and later calls get null.
#pragma once

#include <windows.h>

#include "platform/SlimMutex.h"

namespace vela {

class DeviceHandle {
 public:
    // `handle` is null for a touchpad that is not open.
    explicit DeviceHandle(HANDLE handle) : handle_(handle) {}
    ~DeviceHandle() { Close(); }
    DeviceHandle(const DeviceHandle&) = delete;
    DeviceHandle& operator=(const DeviceHandle&) = delete;

    // Calls `call` with the handle, which stays open meanwhile, or with null once it is closed; the
    // platform refuses null as it refuses any handle that is not open. Returns what `call` returns.
    // Any number of threads may call it. Close waits for `call`, which is one platform call.
    template <typename Call>
    auto Use(Call call) {
        const Rundown rundown(*this);
        return call(rundown.handle);
    }

    // Returns whether the handle is open; another thread may close it at any time.
    bool IsOpen() VELA_EXCLUDES(mutex_);

    // Returns when no thread is inside Use any more. The platform ends the operations pending on
    // the handle, possibly later. Does nothing when the handle is closed.
    void Close();

 private:
    // Keeps the handle open for as long as it lives.
    struct Rundown {
        explicit Rundown(DeviceHandle& used) : owner(used), handle(used.Enter()) {}
        ~Rundown() {
            if (handle != nullptr) owner.Leave();
        }
        Rundown(const Rundown&) = delete;
        Rundown& operator=(const Rundown&) = delete;

        DeviceHandle& owner;
        const HANDLE handle;
    };

    // Returns null once the handle is closed; Leave is not called then.
    HANDLE Enter() VELA_EXCLUDES(mutex_);
    void Leave() VELA_EXCLUDES(mutex_);

    SlimMutex mutex_;  // guards: handle_, users_
    SlimConditionVariable unused_;
    HANDLE handle_ VELA_GUARDED_BY(mutex_);
    int users_ VELA_GUARDED_BY(mutex_) = 0;
};

}  // namespace vela
