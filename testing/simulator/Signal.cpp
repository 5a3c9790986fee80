#include "testing/simulator/Signal.h"

#include <chrono>

namespace simulator {

bool Signal::Wait(std::unique_lock<std::mutex>& lock, DWORD milliseconds,
                  const bool& endTimedWaits) {
    if (milliseconds == INFINITE) {
        changed_.wait(lock, [this] { return set_; });
    } else {
        changed_.wait_for(lock, std::chrono::milliseconds(milliseconds),
                          [&] { return set_ || endTimedWaits; });
    }
    if (!set_) return false;
    if (reset_ == Reset::Auto) set_ = false;
    return true;
}

}  // namespace simulator
