// The slim lock and its condition variable.
#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <thread>

#include "platform/SlimMutex.h"
#include "testing/unit/platform/KeepsThreadsApart.h"

namespace {

using vela::SlimConditionVariable;
using vela::SlimMutex;

TEST(SlimMutexTest, LetsOneThreadInAtATime) {
    SlimMutex mutex;
    EXPECT_TRUE(
        platform_test::KeepsThreadsApart([&] { return std::unique_lock<SlimMutex>(mutex); }));
}

TEST(SlimMutexTest, IsFreeWhileAThreadWaitsForACondition) {
    SlimMutex mutex;
    SlimConditionVariable changed;
    bool ready = false;
    bool continued = false;
    std::thread waiting([&] {
        const std::lock_guard<SlimMutex> lock(mutex);
        while (!ready) changed.wait(mutex);
        continued = true;
        changed.notify_all();
    });
    {
        const std::lock_guard<SlimMutex> lock(mutex);
        ready = true;
        changed.notify_all();
        while (!continued) changed.wait(mutex);
    }
    waiting.join();
    EXPECT_TRUE(continued);
}

TEST(SlimMutexTest, IsHeldAgainWhenTheConditionHolds) {
    SlimMutex mutex;
    SlimConditionVariable changed;
    int tickets = 0;
    int used = 0;
    const auto use = [&] {
        for (int i = 0; i < 500; ++i) {
            const std::lock_guard<SlimMutex> lock(mutex);
            while (tickets == 0) changed.wait(mutex);
            --tickets;
            ++used;
        }
    };
    std::thread first(use);
    std::thread second(use);
    for (int i = 0; i < 1000; ++i) {
        const std::lock_guard<SlimMutex> lock(mutex);
        ++tickets;
        changed.notify_all();
    }
    first.join();
    second.join();
    EXPECT_EQ(used, 1000);
    EXPECT_EQ(tickets, 0);
}

TEST(SlimMutexTest, ANotificationWakesAllThatWait) {
    SlimMutex mutex;
    SlimConditionVariable changed;
    int waiting = 0;
    bool go = false;
    std::atomic<int> woken{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&] {
            const std::lock_guard<SlimMutex> lock(mutex);
            ++waiting;
            changed.notify_all();
            while (!go) changed.wait(mutex);
            ++woken;
        });
    }
    {
        const std::lock_guard<SlimMutex> lock(mutex);
        while (waiting < 3) changed.wait(mutex);
        go = true;
        changed.notify_all();
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(woken, 3);
}

}  // namespace
