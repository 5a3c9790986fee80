// The exit of host processes, and what they leave open. The hosts are child processes.
#include <atomic>
#include <thread>

#include "testing/acceptance/DetachableTouchpad.h"
#include "testing/acceptance/HapticTest.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/ChildProcess.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::IsSupersetOf;

// The exit code that std::terminate leads to.
constexpr DWORD kEndedByTerminate = 3;
// The exit code of a host that ends normally.
constexpr int kExitedNormally = 42;

void LightCamera(AgentDll& agent) {
    agent.EnableFeature(1);
    agent.Activate(VELA_ACTIVE);
    agent.EnableSingleButton(VELA_BUTTON_CAMERA, 1);
    agent.SetButtonVisible(VELA_BUTTON_CAMERA, 1);
}

int AsksForPresenceOnly(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    agent.IsVelaPresent();
    agent.UnInitLogger();
    return kExitedNormally;
}

int ClosesProperly(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    LightCamera(agent);
    agent.UnInit();
    agent.UnInitLogger();
    return kExitedNormally;
}

int ClosesWithoutActivating(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    agent.EnableFeature(1);
    agent.UnInit();
    agent.UnInitLogger();
    return kExitedNormally;
}

int ForgetsUnInit(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    LightCamera(agent);
    return kExitedNormally;
}

int ForgetsUnInitLogger(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    LightCamera(agent);
    agent.UnInit();
    return kExitedNormally;
}

int TerminatesItself(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    LightCamera(agent);
    TerminateProcess(GetCurrentProcess(), kExitedNormally);
    return 1;
}

int FreesTheLibrary(const std::filesystem::path& folder) {
    const int result = ClosesProperly(folder);
    const HMODULE module = GetModuleHandleW(L"VelaAgent.dll");
    if (!FreeLibrary(module) || GetModuleHandleW(L"VelaAgent.dll") != nullptr) return 1;
    return result;
}

int WaitsOpen(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    LightCamera(agent);
    Sleep(INFINITE);
    return 1;
}

int Spins(const std::filesystem::path&) {
    const std::atomic<bool> ends{false};
    while (!ends) continue;
    return 1;
}

// The haptic session's record logs when it is destroyed with the library's static objects.
int LeavesWhileThreadsLog(const std::filesystem::path& folder) {
    constexpr std::uint32_t kLinesBefore = 200;
    AgentDll& agent = *new AgentDll();
    static std::atomic<std::uint32_t> lines{0};
    agent.InitLogger(folder.c_str());
    if (agent.InitHapticTP() != 1) return 1;
    for (int i = 0; i < 3; ++i) {
        std::thread([&agent] {
            for (;; ++lines) agent.UnInit();
        }).detach();
    }
    while (lines < kLinesBefore) Sleep(0);
    return kExitedNormally;
}

const RegisteredRole kRoles[] = {
    {"AsksForPresenceOnly", AsksForPresenceOnly},
    {"ClosesProperly", ClosesProperly},
    {"ClosesWithoutActivating", ClosesWithoutActivating},
    {"ForgetsUnInit", ForgetsUnInit},
    {"ForgetsUnInitLogger", ForgetsUnInitLogger},
    {"TerminatesItself", TerminatesItself},
    {"FreesTheLibrary", FreesTheLibrary},
    {"WaitsOpen", WaitsOpen},
    {"Spins", Spins},
    {"LeavesWhileThreadsLog", LeavesWhileThreadsLog},
};

struct Exit {
    const char* role;
    bool isDetachable;
    DWORD exitCode;
};

class ProcessExitTest : public TouchpadAcceptanceTest, public testing::WithParamInterface<Exit> {
 protected:
    TouchpadLayout Layout() const {
        return GetParam().isDetachable ? DetachableTouchpad() : TouchpadLayout{};
    }
};

INSTANTIATE_TEST_SUITE_P(
    , ProcessExitTest,
    testing::Values(Exit{"AsksForPresenceOnly", false, kExitedNormally},
                    Exit{"AsksForPresenceOnly", true, kExitedNormally},
                    Exit{"ClosesProperly", false, kExitedNormally},
                    // UnInit requests the heartbeat's thread to stop but does not wait for it.
                    Exit{"ClosesProperly", true, kEndedByTerminate},
                    Exit{"ClosesWithoutActivating", true, kExitedNormally},
                    Exit{"ForgetsUnInit", false, kEndedByTerminate},
                    Exit{"ForgetsUnInit", true, kEndedByTerminate},
                    Exit{"ForgetsUnInitLogger", false, kExitedNormally},
                    Exit{"TerminatesItself", false, kExitedNormally},
                    Exit{"TerminatesItself", true, kExitedNormally},
                    Exit{"FreesTheLibrary", false, kExitedNormally},
                    Exit{"FreesTheLibrary", true, kEndedByTerminate}),
    [](const auto& test) {
        return std::string(test.param.role) + (test.param.isDetachable ? "Detachable" : "");
    });

TEST_P(ProcessExitTest, EndsAsItShouldAndLeavesTheTouchpadToOthers) {
    Plug(Layout());
    EXPECT_EQ(ExitCodeOf(GetParam().role, log_.Path()), GetParam().exitCode);
    EXPECT_TRUE(Touchpad().Device().WaitForState(
        [](const VirtualHidState& state) { return state.readWriteOpens == 0; }, kPatience));
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(WaitForLights(AllFourLit));
}

class HostProcessTest : public TouchpadAcceptanceTest {};

TEST_F(HostProcessTest, KilledFromOutsideItLeavesLinesAndLightsAsTheyWere) {
    const LogFolder hostsLog;
    Plug();
    ChildProcess host("WaitsOpen", hostsLog.Path());
    ASSERT_TRUE(
        hostsLog.WaitForLine("{INFO @ SetButtonVisible} SetButtonVisible for BUTTON_ID 0 (1)"));
    const auto cameraIsLit = [](const Lights& lights) { return lights.Brightness(0x21) == 3; };
    ASSERT_TRUE(WaitForLights(cameraIsLit));
    EXPECT_FALSE(host.HangsInWine());
    host.Terminate(7);
    EXPECT_EQ(host.Wait(), 7U);
    EXPECT_TRUE(cameraIsLit(Touchpad().CurrentLights()));
    EXPECT_THAT(hostsLog.Lines(), IsSupersetOf({"{INFO @ Activate} Activate HID (0)",
                                                "{INFO @ Enable} Enable HID (1)"}));
}

TEST_F(HostProcessTest, ThatSpinsCountsAsHungInWineWhereverThatRuns) {
    const LogFolder hostsLog;
    const ChildProcess host("Spins", hostsLog.Path());
    const bool isOnWine = std::filesystem::exists("Z:\\proc");
    EXPECT_EQ(WaitUntil([&] { return host.HangsInWine(); }), isOnWine);
}

class LoggingProcessExitTest : public HapticTest {};

// The process may end any thread while it holds the log's lock. Now and then such a thread holds a
// lock of Wine's own instead, and the last thread spins or waits for that one for ever.
TEST_F(LoggingProcessExitTest, HangsInNoneOfManyEnds) {
    Plug();
    int exited = 0;
    for (int i = 0; i < 12; ++i) {
        const LogFolder hostsLog;
        ChildProcess host("LeavesWhileThreadsLog", hostsLog.Path());
        const DWORD exitCode = host.Wait(std::chrono::seconds(10));
        if (exitCode == kExitedNormally) ++exited;
        if (exitCode == STILL_ACTIVE && host.HangsInWine()) continue;
        ASSERT_EQ(exitCode, static_cast<DWORD>(kExitedNormally)) << "end " << i;
    }
    EXPECT_GE(exited, 8);
}

}  // namespace
}  // namespace acceptance
