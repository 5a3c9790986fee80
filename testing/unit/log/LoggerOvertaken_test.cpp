// Threads of the logger that others overtake just before they take a lock.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <dlfcn.h>
#include <pthread.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>

#include "log/ILog.h"
#include "testing/kit/native/AgentLog.h"

namespace {

thread_local int locksUntilStop = 0;  // 0: the thread is not held up
std::atomic<bool> mayLock{false};
std::atomic<bool> isBeforeLock{false};

}  // namespace

// Replaces the C library's function, in which a thread can be held up.
extern "C" int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
    if (locksUntilStop > 0 && --locksUntilStop == 0) {
        isBeforeLock = true;
        while (!mayLock) std::this_thread::yield();
    }
    static const auto lock =
        reinterpret_cast<int (*)(pthread_mutex_t*)>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    return lock(mutex);
}

namespace {

// Runs `call` on a thread of its own, and `overtaking` while that waits before its lock number
// `lock`, counted from 1.
template <typename Call, typename Overtaking>
void Overtake(int lock, Call call, Overtaking overtaking) {
    std::thread overtaken([&] {
        locksUntilStop = lock;
        call();
        // A call that takes fewer locks is not overtaken, and the test fails.
        EXPECT_EQ(std::exchange(locksUntilStop, 0), 0);
        isBeforeLock = true;
    });
    while (!isBeforeLock) std::this_thread::yield();
    overtaking();
    mayLock = true;
    overtaken.join();
}

// This is the process's first use of the logger.
TEST(LoggerOvertaken, ThreadsThatMakeItAtOnceGetTheSame) {
    vela::ILog* first = nullptr;
    vela::ILog* second = nullptr;
    Overtake(
        1, [&] { first = vela::GetLogger(); }, [&] { second = vela::GetLogger(); });
    EXPECT_EQ(first, second);
}

TEST(LoggerOvertaken, ALineThatTheStopOvertakesIsInNoLaterFile) {
    kit::AgentLog log;
    Overtake(
        1, [] { vela::GetLogger()->Info("late", "f"); }, [&] { log.Finish(); });
    EXPECT_THAT(log.Texts(), testing::IsEmpty());
    kit::AgentLog next;
    EXPECT_THAT(next.Texts(), testing::IsEmpty());
}

// The stop takes three locks: against other stops, to queue its own line, and to stop the thread.
TEST(LoggerOvertaken, AThreadThatHasWrittenTheLastLineBeforeTheStopEndsToo) {
    kit::AgentLog log;
    Overtake(
        3, [&] { log.Finish(); },
        [&] {
            EXPECT_TRUE(log.WaitForLine("Logger::UnInitialize"));
            // Gives the thread the time to wait for the next line.
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        });
}

}  // namespace
