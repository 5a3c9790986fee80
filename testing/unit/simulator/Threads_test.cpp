#include "testing/unit/simulator/SimulatorTest.h"

#include <cstdlib>
#include <thread>

namespace simulator_test {
namespace {

using Threads = SimulatorTest;
using FiberLocalStorage = SimulatorTest;
using FiberLocalStorageDeathTest = SimulatorTest;

DWORD WINAPI WaitFor(LPVOID event) {
    WaitForSingleObject(event, INFINITE);
    return 5;
}

TEST_F(Threads, HaveAnExitCodeOnceTheyHaveEnded) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE thread = CreateThread(nullptr, 0, WaitFor, event, 0, nullptr);
    DWORD exitCode = 0;
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_TIMEOUT);
    EXPECT_TRUE(GetExitCodeThread(thread, &exitCode));
    EXPECT_EQ(exitCode, STILL_ACTIVE);
    SetEvent(event);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(GetExitCodeThread(thread, &exitCode));
    EXPECT_EQ(exitCode, 5U);
}

TEST_F(Threads, AnEventHasNoExitCode) {
    DWORD exitCode = 0;
    EXPECT_FALSE(GetExitCodeThread(CreateEventW(nullptr, TRUE, FALSE, nullptr), &exitCode));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

void WINAPI Increment(PVOID count) { ++*static_cast<int*>(count); }

TEST_F(FiberLocalStorage, IsCalledBackAtTheEndOfAThreadThatHasAValue) {
    const DWORD index = FlsAlloc(Increment);
    int count = 0;
    std::thread([&] { EXPECT_TRUE(FlsSetValue(index, &count)); }).join();
    EXPECT_EQ(count, 1);
    std::thread([] {}).join();
    EXPECT_EQ(count, 1);
}

TEST_F(FiberLocalStorage, HasNoValueOutsideItsIndices) {
    EXPECT_FALSE(FlsSetValue(FLS_OUT_OF_INDEXES, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

void WINAPI EndWithTheNextCode(PVOID thread) {
    DWORD exitCode = 0;
    GetExitCodeThread(thread, &exitCode);
    TerminateProcess(GetCurrentProcess(), exitCode + 1);
}

TEST_F(FiberLocalStorageDeathTest, IsCalledBackAtTheEndOfTheProcessWithItsCodeInTheOtherThreads) {
    const auto end = [] {
        const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        const HANDLE thread = CreateThread(nullptr, 0, WaitFor, event, 0, nullptr);
        FlsSetValue(FlsAlloc(EndWithTheNextCode), thread);
        std::exit(42);
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(43), "");
}

}  // namespace
}  // namespace simulator_test
