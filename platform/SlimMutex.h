// The platform's own slim lock and condition variable, in the shape of the standard library's.
//
// For what is locked and woken for every report and every log line. MinGW-w64 makes the standard
// library's of semaphores, and waking a thread through one takes several times as long.
#pragma once

#include <windows.h>

namespace vela {

// Exclusive, not recursive. Cannot fail to be taken. Whoever waits may be served in any order.
class SlimMutex {
 public:
    SlimMutex() = default;
    SlimMutex(const SlimMutex&) = delete;
    SlimMutex& operator=(const SlimMutex&) = delete;

    void lock() { AcquireSRWLockExclusive(&lock_); }
    void unlock() { ReleaseSRWLockExclusive(&lock_); }

 private:
    friend class SlimConditionVariable;
    SRWLOCK lock_ = SRWLOCK_INIT;
};

class SlimConditionVariable {
 public:
    SlimConditionVariable() = default;
    SlimConditionVariable(const SlimConditionVariable&) = delete;
    SlimConditionVariable& operator=(const SlimConditionVariable&) = delete;

    // With `mutex` locked by the caller, who has it again when `condition` holds; the condition is
    // asked with the mutex locked.
    template <typename Condition>
    void wait(SlimMutex& mutex, Condition condition) {
        while (!condition()) SleepConditionVariableSRW(&variable_, &mutex.lock_, INFINITE, 0);
    }
    void notify_all() { WakeAllConditionVariable(&variable_); }

 private:
    CONDITION_VARIABLE variable_ = CONDITION_VARIABLE_INIT;
};

}  // namespace vela
