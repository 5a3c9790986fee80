#include "testing/unit/simulator/SimulatorTest.h"

#include <chrono>
#include <thread>

namespace simulator_test {
namespace {

using std::chrono::steady_clock;

class Events : public SimulatorTest {};

TEST_F(Events, StartAsRequested) {
    EXPECT_FALSE(IsSignalled(CreateEventW(nullptr, TRUE, FALSE, nullptr)));
    EXPECT_TRUE(IsSignalled(CreateEventW(nullptr, TRUE, TRUE, nullptr)));
}

TEST_F(Events, OfManualResetStaySignalledUntilReset) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    EXPECT_TRUE(SetEvent(event));
    EXPECT_TRUE(IsSignalled(event));
    EXPECT_TRUE(IsSignalled(event));
    EXPECT_TRUE(ResetEvent(event));
    EXPECT_FALSE(IsSignalled(event));
}

TEST_F(Events, OfAutoResetServeOneWait) {
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    SetEvent(event);
    SetEvent(event);
    EXPECT_TRUE(IsSignalled(event));
    EXPECT_FALSE(IsSignalled(event));
}

TEST_F(Events, OfAutoResetReleaseOneThreadEach) {
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HANDLE done = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const auto waiter = [&] {
        EXPECT_EQ(WaitForSingleObject(event, INFINITE), WAIT_OBJECT_0);
        SetEvent(done);
    };
    std::thread first(waiter);
    std::thread second(waiter);
    EXPECT_TRUE(machine_.WaitForCalls("WaitForSingleObject", 2));
    SetEvent(event);
    EXPECT_EQ(WaitForSingleObject(done, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(done, 20), WAIT_TIMEOUT);
    SetEvent(event);
    EXPECT_EQ(WaitForSingleObject(done, INFINITE), WAIT_OBJECT_0);
    first.join();
    second.join();
}

TEST_F(Events, AreSharedByName) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, L"Global\\Ready");
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    const HANDLE again = CreateEventW(nullptr, TRUE, FALSE, L"Global\\Ready");
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_NE(event, again);
    SetEvent(again);
    EXPECT_TRUE(IsSignalled(event));
    EXPECT_FALSE(machine_.MutexExists(L"Global\\Ready"));
    EXPECT_EQ(CreateMutexW(nullptr, FALSE, L"Global\\Ready"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(Events, AreNoOtherObjects) {
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, nullptr);
    for (const HANDLE handle : {mutex, static_cast<HANDLE>(nullptr), INVALID_HANDLE_VALUE}) {
        SetLastError(0);
        EXPECT_FALSE(SetEvent(handle));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        SetLastError(0);
        EXPECT_FALSE(ResetEvent(handle));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
}

class Waiting : public SimulatorTest {};

TEST_F(Waiting, FailsForWhatIsNoOpenHandle) {
    const HANDLE event = CreateEventW(nullptr, TRUE, TRUE, nullptr);
    EXPECT_TRUE(CloseHandle(event));
    for (const HANDLE handle : {event, static_cast<HANDLE>(nullptr), INVALID_HANDLE_VALUE}) {
        SetLastError(0);
        EXPECT_EQ(WaitForSingleObject(handle, 0), WAIT_FAILED);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
}

TEST_F(Waiting, TakesItsTimeAndLeavesTheLastErrorAlone) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    SetLastError(4711);
    const auto start = steady_clock::now();
    EXPECT_EQ(WaitForSingleObject(event, 30), WAIT_TIMEOUT);
    EXPECT_GE(steady_clock::now() - start, std::chrono::milliseconds(30));
    EXPECT_EQ(GetLastError(), 4711U);
}

TEST_F(Waiting, EndsWhenAnotherThreadSignals) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        EXPECT_TRUE(machine_.WaitForCalls("WaitForSingleObject", 1));
        SetEvent(event);
    });
    EXPECT_EQ(WaitForSingleObject(event, 30000), WAIT_OBJECT_0);
    other.join();
}

TEST_F(Waiting, GoesOnWhenTheHandleIsClosedMeanwhile) {
    // A call is recorded before it uses its handle, so the event may be closed too early: that wait
    // fails, and the next attempt waits longer before it closes.
    DWORD result = WAIT_FAILED;
    for (int attempt = 1; attempt <= 10 && result == WAIT_FAILED; ++attempt) {
        machine_.ForgetCalls();
        const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, L"Named");
        const HANDLE other = CreateEventW(nullptr, TRUE, FALSE, L"Named");
        std::thread closer([&] {
            EXPECT_TRUE(machine_.WaitForCalls("WaitForSingleObject", 1));
            std::this_thread::sleep_for(std::chrono::milliseconds(10 * attempt));
            EXPECT_TRUE(CloseHandle(event));
            SetEvent(other);
        });
        result = WaitForSingleObject(event, INFINITE);
        closer.join();
        CloseHandle(other);
    }
    EXPECT_EQ(result, WAIT_OBJECT_0);
}

TEST_F(Waiting, WithALimitEndsAtOnceWhenTimeFlies) {
    machine_.ExpireTimedWaits(true);
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const auto start = steady_clock::now();
    EXPECT_EQ(WaitForSingleObject(event, 30000), WAIT_TIMEOUT);
    EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(5));
    SetEvent(event);
    EXPECT_EQ(WaitForSingleObject(event, 30000), WAIT_OBJECT_0);
}

TEST_F(Waiting, ThatHasBegunEndsAsWellWhenTimeStartsToFly) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        EXPECT_TRUE(machine_.WaitForCalls("WaitForSingleObject", 1));
        machine_.ExpireTimedWaits(true);
    });
    const auto start = steady_clock::now();
    EXPECT_EQ(WaitForSingleObject(event, 30000), WAIT_TIMEOUT);
    EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(5));
    other.join();
}

TEST_F(Waiting, TakesItsTimeAgainAfterAReset) {
    machine_.ExpireTimedWaits(true);
    machine_.Reset();
    const auto start = steady_clock::now();
    EXPECT_EQ(WaitForSingleObject(CreateEventW(nullptr, TRUE, FALSE, nullptr), 30), WAIT_TIMEOUT);
    EXPECT_GE(steady_clock::now() - start, std::chrono::milliseconds(30));
}

TEST_F(Waiting, WithoutLimitIsNotCutShortWhenTimeFlies) {
    machine_.ExpireTimedWaits(true);
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        EXPECT_TRUE(machine_.WaitForCalls("WaitForSingleObject", 1));
        SetEvent(event);
    });
    EXPECT_EQ(WaitForSingleObject(event, INFINITE), WAIT_OBJECT_0);
    other.join();
}

}  // namespace
}  // namespace simulator_test
