// Whether something that is meant to let one thread in at a time does.
#pragma once

#include <thread>
#include <vector>

namespace sync_test {

// Four threads call `inside` under the guard that `enter` returns, over and over; `inside` is no
// atomic step, so that two threads within it at once lose some of the calls. True when none was
// lost.
template <typename Enter>
bool KeepsThreadsApart(Enter enter) {
    constexpr int kThreads = 4;
    constexpr int kTimes = 2000;
    volatile int count = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int time = 0; time < kTimes; ++time) {
                [[maybe_unused]] const auto guard = enter();
                const int before = count;
                if (time % 100 == 0) std::this_thread::yield();
                count = before + 1;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    return count == kThreads * kTimes;
}

}  // namespace sync_test
