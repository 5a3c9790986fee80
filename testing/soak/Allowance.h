// Limits what the threads of a soak do. The agent's log accepts lines faster than it writes them,
// so unlimited threads would fill the memory with lines.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>

namespace soak {

class Allowance {
 public:
    // Waits until one more action is allowed; returns false after the end.
    bool Take() {
        while (left_.fetch_sub(1) <= 0) {
            ++left_;
            if (over_) return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return !over_;
    }
    void Grant(std::int64_t actions) { left_ = actions; }
    std::int64_t Left() const { return left_; }
    void End() { over_ = true; }
    bool IsOver() const { return over_; }

 private:
    std::atomic<std::int64_t> left_{0};
    std::atomic<bool> over_{false};
};

}  // namespace soak
