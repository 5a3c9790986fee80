// The platform's slim lock and condition variable, with the interface of the standard library's.
//
// They serve what is locked and woken for every report and every log line: MinGW-w64 builds the
// standard library's on semaphores, and waking a thread through one takes several times as long.
#pragma once

#include <windows.h>

#include "platform/ThreadAnnotations.h"

namespace vela {

// An exclusive, non-recursive mutex. Locking cannot fail. Waiting threads get it in any order.
class VELA_CAPABILITY SlimMutex {
 public:
    SlimMutex() = default;
    SlimMutex(const SlimMutex&) = delete;
    SlimMutex& operator=(const SlimMutex&) = delete;

    void lock() VELA_ACQUIRE() { AcquireSRWLockExclusive(&lock_); }
    void unlock() VELA_RELEASE() { ReleaseSRWLockExclusive(&lock_); }

 private:
    friend class SlimConditionVariable;
    SRWLOCK lock_ = SRWLOCK_INIT;
};

class SlimConditionVariable {
 public:
    SlimConditionVariable() = default;
    SlimConditionVariable(const SlimConditionVariable&) = delete;
    SlimConditionVariable& operator=(const SlimConditionVariable&) = delete;

    // Releases `mutex` until a notification, and locks it again. May return without one: the caller
    // checks its condition in a loop.
    void wait(SlimMutex& mutex) VELA_REQUIRES(mutex) {
        SleepConditionVariableSRW(&variable_, &mutex.lock_, INFINITE, 0);
    }
    void notify_all() { WakeAllConditionVariable(&variable_); }

 private:
    CONDITION_VARIABLE variable_ = CONDITION_VARIABLE_INIT;
};

}  // namespace vela
