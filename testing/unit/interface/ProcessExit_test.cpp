// The exit of a process that has used the library.
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <thread>

#include "log/ILog.h"
#include "testing/kit/native/AgentLog.h"
#include "testing/kit/native/ExportsTest.h"
#include "testing/kit/native/LibraryFolder.h"

namespace {

using simulator::Machine;
using namespace kit;
using testing::ExitedWithCode;
using testing::KilledBySignal;

constexpr int kHostsExitCode = 7;

// Each test's host is a process of its own, as the session is destroyed when its process exits.
class ProcessExitDeathTest : public testing::Test {
 protected:
    ProcessExitDeathTest() { testing::GTEST_FLAG(death_test_style) = "threadsafe"; }

    // Opens the touchpad; the session's threads then wait for work.
    static void Open(const TouchpadLayout& layout) {
        // Ends a host that hangs.
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

// --- the log of an ending process ----------------------------------------------------------------

// On Windows the other threads are already ended at this point, with their locks still held.
void Detach(void* reserved) { DllMain(nullptr, DLL_PROCESS_DETACH, reserved); }

// Runs inside a host. The log file is a pipe without a reader: writing the first line blocks for
// ever, and the thread that stops the logger waits for it with the logger's lock held.
void StopLoggerForEver(const std::filesystem::path& folder) {
    alarm(20);
    mkfifo(kit::LogFileIn(folder).c_str(), 0600);
    InitLogger(folder.wstring().c_str());
    std::thread([] { UnInitLogger(); }).detach();
    // UnInitLogger queues its last line while it holds the lock.
    while (Machine::Get().CountCalls("GetFileAttributesExW") == 0) std::this_thread::yield();
}

TEST_F(ProcessExitDeathTest, DropsLinesUnformattedOnceTheProcessEnds) {
    EXPECT_EXIT(
        {
            const kit::AgentLog log;
            int process = 0;
            Detach(&process);
            vela::GetLogger()->Log(vela::kLogInfo, "f", "%s", reinterpret_cast<const char*>(1));
            std::_Exit(kHostsExitCode);
        },
        ExitedWithCode(kHostsExitCode), "");
}

TEST_F(ProcessExitDeathTest, LogsOnWhereTheLibraryAloneIsUnloaded) {
    EXPECT_EXIT(
        {
            kit::AgentLog log;
            Detach(nullptr);
            UnInit();
            std::_Exit(log.Texts().size() == 1 ? kHostsExitCode : EXIT_FAILURE);
        },
        ExitedWithCode(kHostsExitCode), "");
}

TEST_F(ProcessExitDeathTest, WaitsForNobodyWhoStopsTheLogger) {
    EXPECT_EXIT(
        {
            std::optional<kit::LogFolder> log(std::in_place);
            Machine::Get().RecordFileCalls(true);
            StopLoggerForEver(log->Path());
            int process = 0;
            Detach(&process);
            UnInitLogger();
            log.reset();
            std::_Exit(kHostsExitCode);
        },
        ExitedWithCode(kHostsExitCode), "");
}

}  // namespace
