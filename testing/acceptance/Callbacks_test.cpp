// Calls that a host may make inside its callbacks, and the callbacks' threads and order.
#include <atomic>
#include <thread>

#include "testing/acceptance/ExportCalls.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::Each;
using testing::ElementsAre;

// The actions of the callbacks, which get no argument of the host's own.
AgentDll* theAgent = nullptr;
bool onAnotherThread = false;
std::atomic<const ExportCall*> nextCall{nullptr};
std::atomic<int> finished{0};
std::atomic<int> gestures{0};

void CallNext() {
    const ExportCall* const call = nextCall.exchange(nullptr);
    if (call == nullptr) return;  // the call below made the library call back again
    if (onAnotherThread) {
        // This would block for ever if the library held a lock.
        std::thread([call] { call->call(*theAgent); }).join();
    } else {
        call->call(*theAgent);
    }
    ++finished;
}

bool WaitForMore(const std::atomic<int>& counter, int before) {
    return WaitUntil([&] { return counter != before; }) && counter == before + 1;
}

// A call or event that makes the library call back, on a known thread.
struct Occasion {
    const char* name;
    bool afterAGesture;  // the touchpad is temporarily disabled
    void (*cause)(AgentDll& agent, TouchpadControl& touchpad);
};

const Occasion kOccasions[] = {
    {"Press", false, [](AgentDll&, TouchpadControl& touchpad) { touchpad.Press(kCameraButton); }},
    {"Sync", true, [](AgentDll&, TouchpadControl& touchpad) { touchpad.SendEvent(kSync); }},
    {"FirmwareState", false,
     [](AgentDll&, TouchpadControl& touchpad) { touchpad.SendFirmwareState(0); }},
    {"Activate", false, [](AgentDll& agent, TouchpadControl&) { agent.Activate(2); }},
    {"Deactivate", false,
     [](AgentDll& agent, TouchpadControl&) { agent.Activate(VELA_DEACTIVATED); }},
    {"EnableFeature", true, [](AgentDll& agent, TouchpadControl&) { agent.EnableFeature(0); }},
};

class CallbacksTest : public TouchpadAcceptanceTest,
                      public testing::WithParamInterface<std::tuple<Occasion, bool>> {
 protected:
    void MakeTheGesture() {
        const int before = gestures;
        agent_.SetVelaStatusChangeCallback([](std::uint32_t) { ++gestures; });
        Touchpad().SendEvent(kGesture);
        ASSERT_TRUE(WaitForMore(gestures, before));
    }
};

INSTANTIATE_TEST_SUITE_P(, CallbacksTest,
                         testing::Combine(testing::ValuesIn(kOccasions), testing::Bool()),
                         [](const auto& test) {
                             return std::string(std::get<0>(test.param).name) +
                                    (std::get<1>(test.param) ? "OnAnotherThread" : "");
                         });

TEST_P(CallbacksTest, MayCallEveryExportButUnInit) {
    const Occasion& occasion = std::get<0>(GetParam());
    theAgent = &agent_;
    onAnotherThread = std::get<1>(GetParam());
    Plug();
    ASSERT_EQ(agent_.Init(), VELA_INIT_OPEN);
    for (const ExportCall& call : EveryExportButUnInit()) {
        SCOPED_TRACE(call.name);
        agent_.SetVelaButtonPressCallback(nullptr);
        agent_.SetVelaStatusChangeCallback(nullptr);
        LightAll();
        if (occasion.afterAGesture) {
            ASSERT_NO_FATAL_FAILURE(MakeTheGesture());
        }

        const int before = finished;
        nextCall = &call;
        agent_.SetVelaButtonPressCallback([](std::uint32_t, std::uint32_t) { CallNext(); });
        agent_.SetVelaStatusChangeCallback([](std::uint32_t) { CallNext(); });
        occasion.cause(agent_, Touchpad());
        ASSERT_TRUE(WaitForMore(finished, before));
    }
}

class CallbackTest : public TouchpadAcceptanceTest {};

TEST_F(CallbackTest, APressComesOnTheReaderThreadBeforeItsLight) {
    static std::atomic<DWORD> pressThread{0};
    static std::atomic<bool> wasDark{false};
    static TouchpadControl* touchpad = nullptr;
    Plug();
    touchpad = &Touchpad();
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    ASSERT_TRUE(WaitForLights(AllFourLit));
    agent_.SetVelaButtonPressCallback([](std::uint32_t, std::uint32_t) {
        wasDark = AllFourLit(touchpad->CurrentLights());
        pressThread = GetCurrentThreadId();
    });
    Touchpad().Press(kCameraButton);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x20) == 3; }));
    EXPECT_TRUE(wasDark);
    EXPECT_NE(pressThread, GetCurrentThreadId());
}

TEST_F(CallbackTest, AnActivationIsReportedOnTheCallersThread) {
    static std::vector<DWORD> threads;
    Plug();
    ASSERT_EQ(agent_.Init(), VELA_INIT_OPEN);
    agent_.SetVelaStatusChangeCallback(
        [](std::uint32_t) { threads.push_back(GetCurrentThreadId()); });
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
    EXPECT_EQ(agent_.Activate(VELA_DEACTIVATED), 1);
    EXPECT_EQ(threads.size(), 3U);
    EXPECT_THAT(threads, Each(GetCurrentThreadId()));
}

TEST_F(CallbackTest, PressesDuringASlowCallbackComeAfterItInTheirOrder) {
    static HANDLE entered = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    static HANDLE mayLeave = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    static std::vector<std::uint32_t> pressed;
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    agent_.SetVelaButtonPressCallback([](std::uint32_t button, std::uint32_t) {
        SetEvent(entered);
        WaitForSingleObject(mayLeave, INFINITE);
        pressed.push_back(button);
    });
    Touchpad().Press(kCameraButton);
    ASSERT_EQ(WaitForSingleObject(entered, 10000), WAIT_OBJECT_0);
    for (const std::uint16_t usage :
         {kMicrophoneButton, kChatButton, kShareScreenButton, kMicrophoneButton}) {
        Touchpad().Press(static_cast<std::uint16_t>(usage));
    }
    // This event is the end of the queue; its callback is on the same thread.
    Touchpad().SendEvent(kSync);
    SetEvent(mayLeave);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0", "status 0"));
    EXPECT_THAT(pressed, ElementsAre(0, 1, 2, 3, 1));
}

TEST_F(CallbackTest, ACallbackMayBeTakenBackByItself) {
    static AgentDll* agent = nullptr;
    static std::atomic<int> presses{0};
    agent = &agent_;
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    agent_.SetVelaButtonPressCallback([](std::uint32_t, std::uint32_t) {
        ++presses;
        agent->SetVelaButtonPressCallback(nullptr);
    });
    Touchpad().Press(kCameraButton);
    Touchpad().Press(kMicrophoneButton);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x26) == 3; }));
    EXPECT_EQ(presses, 1);
}

}  // namespace
}  // namespace acceptance
