// How a host process leaves, and what it leaves behind. The hosts are child processes.
#include <atomic>
#include <thread>

#include "testing/kit/windows/ChildProcess.h"
#include "testing/acceptance/DetachableTouchpad.h"
#include "testing/acceptance/HapticTest.h"
#include "testing/kit/windows/LitLights.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"

namespace acceptance {
namespace {

using testing::IsSupersetOf;

// What the C++ runtime's terminate makes of a process.
constexpr DWORD kEndedByTerminate = 3;
// No other way out gives this.
constexpr int kLeftInPeace = 42;

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
    return kLeftInPeace;
}

int ClosesProperly(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    LightCamera(agent);
    agent.UnInit();
    agent.UnInitLogger();
    return kLeftInPeace;
}

int ClosesWithoutActivating(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    agent.EnableFeature(1);
    agent.UnInit();
    agent.UnInitLogger();
    return kLeftInPeace;
}

int ForgetsUnInit(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    LightCamera(agent);
    return kLeftInPeace;
}

int ForgetsUnInitLogger(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    LightCamera(agent);
    agent.UnInit();
    return kLeftInPeace;
}

int TerminatesItself(const std::filesystem::path& folder) {
    AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    LightCamera(agent);
    TerminateProcess(GetCurrentProcess(), kLeftInPeace);
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
    return kLeftInPeace;
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
    testing::Values(Exit{"AsksForPresenceOnly", false, kLeftInPeace},
                    Exit{"AsksForPresenceOnly", true, kLeftInPeace},
                    Exit{"ClosesProperly", false, kLeftInPeace},
                    // The heartbeat's thread was told to stop, but nobody waited for it.
                    Exit{"ClosesProperly", true, kEndedByTerminate},
                    Exit{"ClosesWithoutActivating", true, kLeftInPeace},
                    Exit{"ForgetsUnInit", false, kEndedByTerminate},
                    Exit{"ForgetsUnInit", true, kEndedByTerminate},
                    Exit{"ForgetsUnInitLogger", false, kLeftInPeace},
                    Exit{"TerminatesItself", false, kLeftInPeace},
                    Exit{"TerminatesItself", true, kLeftInPeace},
                    Exit{"FreesTheLibrary", false, kLeftInPeace},
                    Exit{"FreesTheLibrary", true, kEndedByTerminate}),
    [](const auto& test) {
        return std::string(test.param.role) + (test.param.isDetachable ? "Detachable" : "");
    });

TEST_P(ProcessExitTest, EndsAsItShouldAndLeavesTheTouchpadToOthers) {
    Plug(Layout());
    ChildProcess host(GetParam().role, log_.Path());
    EXPECT_EQ(host.Wait(), GetParam().exitCode);
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
    host.Terminate(7);
    EXPECT_EQ(host.Wait(), 7U);
    EXPECT_TRUE(cameraIsLit(Touchpad().CurrentLights()));
    EXPECT_THAT(hostsLog.Lines(), IsSupersetOf({"{INFO @ Activate} Activate HID (0)",
                                                "{INFO @ Enable} Enable HID (1)"}));
}

class LoggingProcessExitTest : public HapticTest {};

// Whichever thread the end of the process meets with the log's lock in its hands.
TEST_F(LoggingProcessExitTest, HangsInNoneOfManyEnds) {
    Plug();
    for (int i = 0; i < 10; ++i) {
        const LogFolder hostsLog;
        ChildProcess host("LeavesWhileThreadsLog", hostsLog.Path());
        ASSERT_EQ(host.Wait(), static_cast<DWORD>(kLeftInPeace)) << "end " << i;
    }
}

}  // namespace
}  // namespace acceptance
