// Tests whether a lock admits one thread at a time.
#pragma once

#include <atomic>
#include <thread>
#include <vector>

namespace platform_test {

// Four threads increment a counter repeatedly while they hold what `enter` returns. They read and
// write it separately, so two of them at once lose increments. Returns true when none was lost.
template <typename Enter>
bool KeepsThreadsApart(Enter enter) {
    constexpr int kThreads = 4;
    constexpr int kTimes = 2000;
    volatile int count = 0;
    std::atomic<int> ready{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            ++ready;
            while (ready < kThreads) std::this_thread::yield();
            for (int time = 0; time < kTimes; ++time) {
                [[maybe_unused]] const auto guard = enter();
                const int before = count;
                if (time % 10 == 0) std::this_thread::yield();
                count = before + 1;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    return count == kThreads * kTimes;
}

}  // namespace platform_test
