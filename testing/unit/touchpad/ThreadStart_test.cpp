// When the system refuses a thread, opening throws that exception and leaves nothing behind. Calls
// that come before the last thread runs find the session not open yet.
#include <dlfcn.h>
#include <pthread.h>

#include <atomic>
#include <cerrno>
#include <functional>
#include <limits>
#include <system_error>
#include <utility>

#include "testing/kit/native/TouchpadTest.h"

namespace {

constexpr int kAll = (std::numeric_limits<int>::max)();

std::atomic<int> threadsLeft{kAll};
// Called, when it is set, before the second thread from then on is started.
std::function<void()> beforeSecondThread;
std::atomic<int> threadsStarted{0};

}  // namespace

// Replaces the C library's function, for a process that may start only so many more threads.
extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                              void* (*start)(void*), void* argument) noexcept {
    if (threadsLeft == 0) return EAGAIN;
    if (threadsLeft != kAll) --threadsLeft;
    if (beforeSecondThread && ++threadsStarted == 2) beforeSecondThread();
    static const auto create =
        reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
    return create(thread, attributes, start, argument);
}

namespace kit {
namespace {

using testing::Each;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class ThreadStart : public TouchpadTest {
 protected:
    // Opens the plugged touchpad while the process may start only `count` threads.
    void OpenWithThreads(int count) {
        const auto information = vela::ScanHIDInformation(&session_);
        threadsLeft = count;
        EXPECT_THROW(session_.Initialize(information), std::system_error);
        threadsLeft = kAll;
    }
};

class OpeningWithTooFewThreads : public ThreadStart, public testing::WithParamInterface<int> {};

TEST_P(OpeningWithTooFewThreads, ClosesTheTouchpadAgain) {
    Plug();
    OpenWithThreads(GetParam());
    EXPECT_FALSE(session_.IsInitialized());
    EXPECT_EQ(session_.Information(), nullptr);
    EXPECT_THAT(machine_.OpenHandles(), Each(Not(StartsWith("file"))));
    EXPECT_EQ(device_->PendingReads(), 0U);
    EXPECT_FALSE(session_.Uninitialize());
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_P(OpeningWithTooFewThreads, DoesNotKeepTheNextOneFromIt) {
    Plug();
    OpenWithThreads(GetParam());
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    device_->SendInput(InputReport({kGesture}));
    EXPECT_TRUE(device_->WaitForPendingReads());
    EXPECT_TRUE(session_.Uninitialize());
}

// With 0 no thread starts, with 1 only the reader.
INSTANTIATE_TEST_SUITE_P(Threads, OpeningWithTooFewThreads, testing::Values(0, 1));

TEST_F(ThreadStart, OfTheHeartbeatIsRaisedToWhoActivates) {
    Open(DetachableLayout());
    threadsLeft = 0;
    EXPECT_THROW(session_.Activate(vela::kActive), std::system_error);
    threadsLeft = kAll;
    EXPECT_FALSE(session_.IsActivated());
    EXPECT_TRUE(session_.Activate(vela::kActive));
    EXPECT_TRUE(session_.IsActivated());
}

// The reader runs already while the writer's thread is started.
class CallsWhileOpening : public ThreadStart {
 protected:
    void Open(std::function<void()> meanwhile) {
        const auto information = vela::ScanHIDInformation(&session_);
        beforeSecondThread = std::move(meanwhile);
        ASSERT_EQ(session_.Initialize(information), vela::kHidOpen);
        beforeSecondThread = nullptr;
    }
};

TEST_F(CallsWhileOpening, AreRefusedUntilTheSessionIsOpen) {
    Plug();
    device_->SetFeature({virtual_touchpad::kClickModeReportId, 0x11, 44, 1, 0x33});
    Open([this] {
        EXPECT_FALSE(session_.UpdateVelaState());
        EXPECT_FALSE(session_.SetClickMode(1, 300));
        EXPECT_FALSE(session_.GetClickMode());
        EXPECT_FALSE(session_.IsSupportBiDirectionSwipe());
    });
    EXPECT_TRUE(session_.UpdateVelaState());
    EXPECT_TRUE(session_.GetClickMode());
    EXPECT_TRUE(session_.SetClickMode(1, 300));
    EXPECT_TRUE(session_.IsSupportBiDirectionSwipe());
}

TEST_F(CallsWhileOpening, OfTheTouchpadForAReportAreAnswered) {
    Plug();
    Open([this] {
        ASSERT_TRUE(device_->WaitForPendingReads());
        device_->SendInput(InputReport({kSync}));
        ASSERT_TRUE(device_->WaitForPendingReads());
    });
    EXPECT_TRUE(device_->WaitForOutputs(1));
}

}  // namespace
}  // namespace kit
