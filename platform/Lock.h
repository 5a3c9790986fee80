// Holds a Mutex or a SlimMutex for as long as it lives.
#pragma once

#include "platform/ThreadAnnotations.h"

namespace vela {

template <typename AnyMutex>
class VELA_SCOPED_CAPABILITY Lock {
 public:
    explicit Lock(AnyMutex& mutex) VELA_ACQUIRE(mutex) : mutex_(mutex) { mutex_.lock(); }
    ~Lock() VELA_RELEASE() { mutex_.unlock(); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

 private:
    AnyMutex& mutex_;  // lives longer than its lock
};

}  // namespace vela
