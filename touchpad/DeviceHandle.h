// The file handle of an open touchpad, which one thread closes while others use it.
//
// Windows gives the value of a closed handle to the next object that the process opens: a thread
// that still used the old value would write to a stranger. What drivers call rundown protection
// keeps the two apart: closing waits for the calls that are inside, and later ones get null.
#pragma once

#include <windows.h>

#include "platform/SlimMutex.h"

namespace vela {

class DeviceHandle {
 public:
    // Null for a touchpad that is not open.
    explicit DeviceHandle(HANDLE handle) : handle_(handle) {}
    ~DeviceHandle() { Close(); }
    DeviceHandle(const DeviceHandle&) = delete;
    DeviceHandle& operator=(const DeviceHandle&) = delete;

    // Calls `call` with the handle, which stays open meanwhile, or with null once it is closed; the
    // platform refuses null as it refuses any handle that is not open. Returns what `call` returns.
    // Any thread, any number of them at a time. Close waits for `call`: it is one platform call.
    template <typename Call>
    auto Use(Call call) {
        const Rundown rundown(*this);
        return call(rundown.handle);
    }

    // Whether it was open just now; another thread may close it at any time.
    bool IsOpen() VELA_EXCLUDES(mutex_);

    // Returns when nobody is inside a Use any more. The operations that are pending on the handle
    // are the platform's to end, which may be later. Does nothing for a closed one.
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

    // Null, and nothing to leave, once the handle is closed.
    HANDLE Enter() VELA_EXCLUDES(mutex_);
    void Leave() VELA_EXCLUDES(mutex_);

    SlimMutex mutex_;  // guards: handle_, users_
    SlimConditionVariable unused_;
    HANDLE handle_ VELA_GUARDED_BY(mutex_);
    int users_ VELA_GUARDED_BY(mutex_) = 0;
};

}  // namespace vela
