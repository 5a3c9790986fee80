// Opening and closing: twice, many times, at once, and while other calls run.
#include <atomic>
#include <thread>

#include "testing/acceptance/DetachableTouchpad.h"
#include "testing/acceptance/ExportCalls.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::ElementsAre;

class ClosingTest : public TouchpadAcceptanceTest {
 protected:
    bool WaitUntilClosed() {
        return Touchpad().Device().WaitForState(
            [](const VirtualHidState& state) { return state.readWriteOpens == 0; }, kPatience);
    }
};

TEST_F(ClosingTest, ASecondInitOpensNothingAndOneUnInitCloses) {
    Plug();
    ASSERT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_EQ(Touchpad().Device().Opens(), 1U);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_TRUE(WaitUntilClosed());
    EXPECT_EQ(agent_.UnInit(), 0);
    agent_.UnInitLogger();
    const std::string found =
        "{INFO @ ScanHIDInformation} GetHIDInformation PID (0x1234) FW version(0x63).";
    const std::string start =
        "{INFO @ Initialize} ================= CTandrelHID initialize start =================";
    std::vector<std::string> lines = log_.Lines();
    lines.resize(7);
    EXPECT_THAT(lines, ElementsAre(found, start,
                                   "{INFO @ Initialize} ================= CTandrelHID initialize "
                                   "succeeded =================",
                                   found, start,
                                   "{INFO @ Initialize} Initialize re-initialize, return true "
                                   "immediately.",
                                   "{INFO @ ~CHIDInformation} CHIDInformation clear device "
                                   "UsagePage (ff80),  Usage (80) information"));
}

TEST_F(ClosingTest, ASecondInitKeepsCallbacksButtonsAndActivation) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_EQ(agent_.IsActivated(), 1);
    EXPECT_EQ(agent_.IsFeatureEnabled(), 1);
    EXPECT_EQ(agent_.IsSingleButtonEnabled(VELA_BUTTON_CHAT), 1);
    Touchpad().Press(kChatButton);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0", "press 2 1"));
}

TEST_F(ClosingTest, ASessionStartsFromNothingButTheBrightness) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_EQ(agent_.EnableChatBreathing(1), 1);
    agent_.SetVelaBrightness(40);
    EXPECT_EQ(agent_.UnInit(), 1);
    const auto expectNothing = [this] {
        EXPECT_EQ(agent_.IsActivated(), 0);
        EXPECT_EQ(agent_.IsFeatureEnabled(), 0);
        EXPECT_EQ(agent_.IsChatBreathingEnabled(), 0);
        EXPECT_EQ(agent_.GetVelaBrightness(), 40U);
        for (std::uint32_t button = 0; button < 4; ++button) {
            EXPECT_EQ(agent_.IsSingleButtonEnabled(button), 0);
        }
    };
    expectNothing();
    ASSERT_EQ(agent_.Init(), VELA_INIT_OPEN);
    expectNothing();
}

TEST_F(ClosingTest, TwentyTimesOpenAndClosed) {
    Plug();
    for (int round = 0; round < 20; ++round) {
        SCOPED_TRACE(round);
        ASSERT_NO_FATAL_FAILURE(Open());
        EXPECT_EQ(Touchpad().Device().Opens(), 1U);
        LightAll();
        EXPECT_TRUE(WaitForLights(AllFourLit));
        EXPECT_EQ(agent_.UnInit(), 1);
        EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
        EXPECT_TRUE(WaitUntilClosed());
    }
}

TEST_F(ClosingTest, PressesThatKeepComingHoldNothingUpAndAreNotReportedAfterwards) {
    static std::atomic<bool> mayBeCalled{true};
    static std::atomic<int> reported{0};
    static std::atomic<int> late{0};
    Plug();
    std::atomic<bool> enough{false};
    std::thread person([&] {
        while (!enough) Touchpad().Press(kChatButton);
    });
    for (int round = 1; round <= 5; ++round) {
        SCOPED_TRACE(round);
        const int before = reported;
        EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
        LightAll();
        mayBeCalled = true;
        agent_.SetVelaButtonPressCallback([](std::uint32_t, std::uint32_t) {
            ++reported;
            if (!mayBeCalled) ++late;
        });
        EXPECT_TRUE(WaitUntil([&] { return reported >= before + 3; }));
        EXPECT_EQ(agent_.UnInit(), 1);
        mayBeCalled = false;
    }
    enough = true;
    person.join();
    EXPECT_EQ(late, 0);
}

TEST_F(ClosingTest, OfTwoUnInitsAtOnceOneClosesTheSession) {
    Plug();
    for (int round = 0; round < 10; ++round) {
        SCOPED_TRACE(round);
        ASSERT_NO_FATAL_FAILURE(Open());
        LightAll();
        VELA_BOOL other = -1;
        std::thread host([&] { other = agent_.UnInit(); });
        const VELA_BOOL own = agent_.UnInit();
        host.join();
        EXPECT_EQ(own + other, 1) << own << " and " << other;
        EXPECT_TRUE(WaitUntilClosed());
    }
}

// Two threads call every export at once while the touchpad's heartbeat starts and stops.
TEST_F(ClosingTest, TwoThreadsMayCallEveryExportAtOnce) {
    Plug(DetachableTouchpad());
    ASSERT_NO_FATAL_FAILURE(Open());
    const auto callAll = [this] {
        for (int round = 0; round < 5; ++round) {
            CallEveryExportButUnInit(agent_);
            agent_.Activate(VELA_SUSPENDED);
        }
    };
    std::thread host(callAll);
    callAll();
    host.join();

    // The session still works: the touchpad shows a definite state.
    LightAll();
    agent_.SetVelaBrightness(3);
    EXPECT_EQ(agent_.EnableChatBreathing(0), 1);
    for (std::uint32_t button = 0; button < 4; ++button) {
        EXPECT_EQ(agent_.SetButtonLight(button, 0), 1);
    }
    EXPECT_TRUE(WaitForLights(AllFourLit));
    EXPECT_EQ(agent_.UnInit(), 1);
    agent_.UnInitLogger();
    EXPECT_GT(log_.Lines().size(), 100U);
}

TEST_F(ClosingTest, AnotherThreadMayGoOnSettingButtonsWhileItClosesAndOpens) {
    Plug();
    std::atomic<bool> isDone{false};
    std::thread host([&] {
        for (int round = 0; round < 50; ++round) {
            const VELA_BOOL on = round % 2;
            for (std::uint32_t button = 0; button < 4; ++button) {
                agent_.EnableSingleButton(button, 1);
                agent_.SetButtonVisible(button, on);
                agent_.SetButtonLight(button, on);
            }
            agent_.SetButtonBreathing(VELA_BUTTON_CHAT, on);
            agent_.IsVelaPresent();
        }
        isDone = true;
    });
    do {
        EXPECT_NO_FATAL_FAILURE(Open());
        EXPECT_EQ(agent_.EnableFeature(1), 1);
        EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
        EXPECT_EQ(agent_.UnInit(), 1);
    } while (!isDone);
    host.join();
    EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_EQ(agent_.UnInit(), 1);
}

}  // namespace
}  // namespace acceptance
