// The conventions of VelaAgent.h about UnInit and callbacks: those that it makes, those that it
// waits for, and those that call it.
#include <thread>

#include "testing/acceptance/CallbackConventionsTest.h"
#include "testing/acceptance/ExportCalls.h"
#include "testing/kit/windows/ChildProcess.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::ElementsAre;

class UnInitConventionsTest : public CallbackConventionsTest {};

std::atomic<const ExportCall*> nextCall{nullptr};

// Callbacks_test.cpp has the other occasions.
TEST_F(UnInitConventionsTest, InsideUnInitTheyMayCallEveryFunctionButUnInit) {
    static bool onAnotherThread = false;
    Plug();
    for (const bool elsewhere : {false, true}) {
        onAnotherThread = elsewhere;
        for (const ExportCall& call : EveryExportButUnInit()) {
            SCOPED_TRACE(call.name);
            ASSERT_NO_FATAL_FAILURE(OpenDisabled([](std::uint32_t) {
                const ExportCall* const next = nextCall.exchange(nullptr);
                if (next == nullptr) return;  // the call below made the library call back again
                if (onAnotherThread) {
                    std::thread([next] { next->call(*theAgent); }).join();
                } else {
                    next->call(*theAgent);
                }
            }));
            nextCall = &call;
            EXPECT_EQ(agent_.UnInit(), 1);
            EXPECT_EQ(nextCall, nullptr);
            EXPECT_TRUE(WaitUntilClosed());
            EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
        }
    }
}

TEST_F(UnInitConventionsTest, UnInitInsideItsOwnCallbackReturns0AndTheOuterCallGoesOn) {
    static std::vector<std::pair<std::uint32_t, VELA_BOOL>> inner;
    Plug();
    ASSERT_NO_FATAL_FAILURE(
        OpenDisabled([](std::uint32_t status) { inner.emplace_back(status, theAgent->UnInit()); }));
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_THAT(inner, ElementsAre(std::pair<std::uint32_t, VELA_BOOL>(VELA_STATUS_NORMAL, 0)));
    EXPECT_TRUE(WaitUntilClosed());
    EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
    EXPECT_EQ(agent_.UnInit(), 0);
}

TEST_F(UnInitConventionsTest, UnInitOnAnotherThreadWaitsForTheOneUnderWay) {
    static std::atomic<bool> hasLeft{false};
    static std::thread other;
    static VELA_BOOL otherResult = -1;
    static bool otherWaited = false;
    static const LogFolder* log = nullptr;
    static const std::string starts =
        "{INFO @ Uninitialize} ================= Uninitialize starts. =================";
    log = &log_;
    Plug();
    ASSERT_NO_FATAL_FAILURE(OpenDisabled([](std::uint32_t) {
        other = std::thread([] {
            otherResult = theAgent->UnInit();
            otherWaited = hasLeft;
        });
        EXPECT_TRUE(log->WaitForLine(starts, 2));
        hasLeft = true;
    }));
    EXPECT_EQ(agent_.UnInit(), 1);
    other.join();
    EXPECT_TRUE(otherWaited);
    EXPECT_EQ(otherResult, 0);
}

TEST_F(UnInitConventionsTest, UnInitWaitsForTheCallback) {
    static const HANDLE entered = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    static const HANDLE mayLeave = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    static std::atomic<bool> hasLeft{false};
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    agent_.SetVelaButtonPressCallback([](std::uint32_t, std::uint32_t) {
        SetEvent(entered);
        WaitForSingleObject(mayLeave, INFINITE);
        hasLeft = true;
    });
    Touchpad().Press(kCameraButton);
    ASSERT_EQ(WaitForSingleObject(entered, 10000), WAIT_OBJECT_0);
    bool hadLeft = false;
    std::thread closer([&] {
        EXPECT_EQ(agent_.UnInit(), 1);
        hadLeft = hasLeft;
    });
    EXPECT_TRUE(log_.WaitForLine(
        "{INFO @ Uninitialize} Uninitialize, wait for read input report thread finish."));
    SetEvent(mayLeave);
    closer.join();
    EXPECT_TRUE(hadLeft);
}

// The exit code that std::terminate leads to.
constexpr DWORD kEndedByTerminate = 3;

int ClosesInAPress(const std::filesystem::path& folder) {
    static AgentDll agent;
    agent.InitLogger(folder.c_str());
    if (agent.Init() != VELA_INIT_OPEN) return 1;
    agent.SetVelaButtonPressCallback([](std::uint32_t, std::uint32_t) {
        agent.UnInit();
        TerminateProcess(GetCurrentProcess(), 42);
    });
    agent.EnableSingleButton(VELA_BUTTON_CAMERA, 1);
    Sleep(INFINITE);
    return 1;
}

const RegisteredRole kClosesInAPress("ClosesInAPress", ClosesInAPress);

TEST_F(UnInitConventionsTest, OnTheReaderThreadUnInitIsRaised) {
    const LogFolder hostsLog;
    Plug();
    ChildProcess host("ClosesInAPress", hostsLog.Path());
    ASSERT_TRUE(hostsLog.WaitForLine("{INFO @ EnableButton} EnableButton button(0), enable(1)"));
    Touchpad().Press(kCameraButton);
    EXPECT_EQ(host.Wait(), kEndedByTerminate);
}

}  // namespace
}  // namespace acceptance
