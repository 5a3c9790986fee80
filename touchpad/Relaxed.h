// A scalar that one thread may change while another reads it; the reader accepts any value that it
// had. Copies like the scalar itself.
#pragma once

#include <atomic>

namespace vela {

template <typename T>
class Relaxed {
 public:
    Relaxed(T value) : value_(value) {}  // not explicit: it stands in for a T
    Relaxed(const Relaxed& other) : value_(other) {}
    Relaxed& operator=(const Relaxed& other) { return *this = static_cast<T>(other); }
    Relaxed& operator=(T value) {
        value_.store(value, std::memory_order_relaxed);
        return *this;
    }
    operator T() const { return value_.load(std::memory_order_relaxed); }

 private:
    std::atomic<T> value_;
};

}  // namespace vela
