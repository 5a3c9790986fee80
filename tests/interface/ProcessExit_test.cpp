// How a process ends that has used the library.
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "tests/support/ExportsTest.h"

namespace {

using simulator::Machine;
using test_support::Describe;
using test_support::DetachableLayout;
using test_support::TouchpadLayout;
using testing::ExitedWithCode;
using testing::KilledBySignal;

constexpr int kHostsExitCode = 7;

// Each test's host is a process of its own: the session is destroyed when a process exits.
class ProcessExitDeathTest : public testing::Test {
 protected:
    ProcessExitDeathTest() { testing::GTEST_FLAG(death_test_style) = "threadsafe"; }

    // The touchpad is open, and the session's threads wait for work.
    static void Open(const TouchpadLayout& layout) {
        // A host that hangs instead of ending.
        alarm(20);
        Machine::Get().Reset();
        const auto device = Machine::Get().Plug(Describe(layout));
        if (Init() != VELA_INIT_OPEN) std::_Exit(EXIT_FAILURE);
        UpdateVelaState();
        if (!device->WaitForOutputs(1) || !device->WaitForPendingReads()) std::_Exit(EXIT_FAILURE);
    }
};

TEST_F(ProcessExitDeathTest, IsNormalWithoutASession) {
    EXPECT_EXIT(
        {
            IsActivated();
            std::exit(kHostsExitCode);
        },
        ExitedWithCode(kHostsExitCode), "");
}

TEST_F(ProcessExitDeathTest, IsNormalAfterUnInit) {
    EXPECT_EXIT(
        {
            Open({});
            Activate(VELA_ACTIVE);
            UnInit();
            std::exit(kHostsExitCode);
        },
        ExitedWithCode(kHostsExitCode), "");
}

TEST_F(ProcessExitDeathTest, IsNormalForADetachableTouchpadThatWasNeverActive) {
    EXPECT_EXIT(
        {
            Open(DetachableLayout());
            Activate(VELA_SUSPENDED);
            UnInit();
            std::exit(kHostsExitCode);
        },
        ExitedWithCode(kHostsExitCode), "");
}

TEST_F(ProcessExitDeathTest, IsAbnormalWithAnOpenSession) {
    EXPECT_EXIT(
        {
            Open({});
            std::exit(kHostsExitCode);
        },
        KilledBySignal(SIGABRT), "terminate called");
}

TEST_F(ProcessExitDeathTest, IsAbnormalWithAnOpenSessionAndARunningHeartbeat) {
    EXPECT_EXIT(
        {
            Open(DetachableLayout());
            Activate(VELA_ACTIVE);
            std::exit(kHostsExitCode);
        },
        KilledBySignal(SIGABRT), "terminate called");
}

TEST_F(ProcessExitDeathTest, IsAbnormalOnceADetachableTouchpadWasActive) {
    EXPECT_EXIT(
        {
            Open(DetachableLayout());
            Activate(VELA_ACTIVE);
            UnInit();
            std::exit(kHostsExitCode);
        },
        KilledBySignal(SIGABRT), "terminate called");
}

}  // namespace
