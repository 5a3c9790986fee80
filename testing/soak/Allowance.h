// How much the threads of a soak may still do. The agent's log takes lines faster than it writes
// them, so threads without a bound would fill the memory with lines and not the file.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>

namespace soak {

class Allowance {
 public:
    // Waits for leave to do one thing; false once all is over.
    bool Take() {
        while (left_.fetch_sub(1) <= 0) {
            ++left_;
            if (over_) return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return !over_;
    }
    void Grant(std::int64_t things) { left_ = things; }
    std::int64_t Left() const { return left_; }
    void End() { over_ = true; }
    bool IsOver() const { return over_; }

 private:
    std::atomic<std::int64_t> left_{0};
    std::atomic<bool> over_{false};
};

}  // namespace soak
