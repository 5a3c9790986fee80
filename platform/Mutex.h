// The standard library's mutex, annotated for the thread safety analysis.
#pragma once

#include <mutex>

#include "platform/ThreadAnnotations.h"

namespace vela {

// An exclusive, non-recursive mutex. Throws std::system_error when the system refuses it.
class VELA_CAPABILITY Mutex {
 public:
    Mutex() = default;
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    void lock() VELA_ACQUIRE() { mutex_.lock(); }
    void unlock() VELA_RELEASE() { mutex_.unlock(); }

 private:
    std::mutex mutex_;
};

}  // namespace vela
