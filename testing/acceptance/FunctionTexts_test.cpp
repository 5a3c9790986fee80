// The descriptions of single functions in VelaAgent.h, tested in a host's own steps.
#include <atomic>
#include <thread>

#include "testing/acceptance/DetachableTouchpad.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::ElementsAre;

class FunctionTextsTest : public TouchpadAcceptanceTest {
 protected:
    void ExpectLights(const std::string& wanted) {
        if (!WaitForLights([&](const Lights& lights) { return Describe(lights) == wanted; })) {
            EXPECT_EQ(Describe(Touchpad().CurrentLights()), wanted);
        }
    }
};

TEST_F(FunctionTextsTest, InitBesideAnotherThreadsUnInitFindsTheSessionOpenOrOpensTheNext) {
    // Every UnInit without a session logs a line; they would come faster than they are written.
    agent_.UnInitLogger();
    Plug();
    std::atomic<bool> isDone{false};
    std::thread closer([&] {
        while (!isDone) agent_.UnInit();
    });
    for (int round = 0; round < 50; ++round) EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
    isDone = true;
    closer.join();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(Touchpad().Device().Opens(), 1U);
    LightAll();
    ExpectLights(kAllLit);
    Touchpad().Press(kChatButton);
    EXPECT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0", "press 2 1"));
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
}

TEST_F(FunctionTextsTest, IsVelaPresentIs1AlwaysInASessionWithATouchpadThatStays) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    Unplug();
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    Plug();
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    Unplug();
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
}

TEST_F(FunctionTextsTest, ANullCallbackClears) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    agent_.SetVelaButtonPressCallback(nullptr);
    agent_.SetVelaStatusChangeCallback(nullptr);
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS), 1);
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
    Touchpad().SendEvent(kGesture);
    Touchpad().SendEvent(kSync);
    Touchpad().Press(kCameraButton);
    ExpectLights("camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0");
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0"));
}

TEST_F(FunctionTextsTest, SwitchingTheFeatureOffEndsTheBreathing) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    EXPECT_EQ(agent_.EnableChatBreathing(1), 1);
    EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 1), 1);
    ExpectLights("camera 3/0 microphone 3/0 chat 3 share screen 3, active 1234, breathing 8");
    EXPECT_EQ(agent_.EnableFeature(0), 1);
    ExpectLights(kAllDark);
    EXPECT_EQ(agent_.EnableFeature(1), 1);
    ExpectLights(kAllLit);
}

TEST_F(FunctionTextsTest, SwitchingTheFeatureOffEndsATemporaryDisable) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    Touchpad().SendEvent(kGesture);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_EQ(agent_.EnableFeature(0), 1);
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0", "status 2", "status 0"));
    ExpectLights(kAllDark);
    EXPECT_EQ(agent_.EnableFeature(1), 1);
    ExpectLights(kAllLit);
}

// A temporary disable only ends together with its report to the host.
TEST_F(FunctionTextsTest, WithoutAStatusCallbackATemporaryDisableOutlastsTheFeature) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    Touchpad().SendEvent(kGesture);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    agent_.SetVelaStatusChangeCallback(nullptr);
    const std::uint64_t before = Touchpad().Device().LastSequence();
    EXPECT_EQ(agent_.EnableFeature(0), 1);
    EXPECT_EQ(agent_.EnableFeature(1), 1);
    agent_.SetVelaBrightness(9);
    Touchpad().SendEvent(kSync);
    const auto report =
        Touchpad().Device().WaitForOutput(virtual_touchpad::IsLightReport, kPatience, before);
    ASSERT_TRUE(report);
    EXPECT_EQ(virtual_touchpad::DecodeLights(report->bytes, {}).Brightness(0x24), 9);
}

TEST_F(FunctionTextsTest, ActivateReportsEveryValueButTheCurrentOneAndDeactivatedTwice) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    for (const std::uint32_t activation : {4U, 0U, 0U, 1U, 7U, 7U, 5U, 0xFFFFFFFFU, 4U, 4U}) {
        EXPECT_EQ(agent_.Activate(activation), 1) << activation;
    }
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0", "status 1", "status 7", "status 5",
                                                    "status 4294967295", "status 4", "status 4"));
}

// A press of a button that is neither visible nor active is still reported.
TEST_F(FunctionTextsTest, ChangesThatTheTouchpadMakesAreReportedWhileActiveOnly) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.EnableFeature(1), 1);
    EXPECT_EQ(agent_.EnableSingleButton(VELA_BUTTON_CHAT, 1), 1);
    std::vector<std::string> calls;
    for (const std::uint32_t activation : {4U, 5U, 2U}) {
        EXPECT_EQ(agent_.Activate(activation), 1);
        if (activation != 4) calls.push_back("status " + std::to_string(activation));
        for (const std::uint16_t usage : {kGesture, kSync, kDisabled, kEnabled}) {
            Touchpad().SendEvent(static_cast<std::uint16_t>(usage));
        }
        Touchpad().SendFirmwareState(0x20);
        Touchpad().SendFirmwareState(0);
        Touchpad().Press(kChatButton);
        calls.emplace_back("press 2 1");
        ASSERT_TRUE(HostCallbacks::WaitForCalls(calls.size()));
        EXPECT_EQ(HostCallbacks::Calls(), calls);
    }
}

TEST_F(FunctionTextsTest, TheBrightnessIsIgnoredWithoutASessionAndKeptAfterIt) {
    Plug();
    agent_.SetVelaBrightness(7);
    EXPECT_EQ(agent_.GetVelaBrightness(), 3U);
    ASSERT_NO_FATAL_FAILURE(Open());
    agent_.SetVelaBrightness(9);
    EXPECT_EQ(agent_.UnInit(), 1);
    agent_.SetVelaBrightness(7);
    EXPECT_EQ(agent_.GetVelaBrightness(), 9U);
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    ExpectLights("camera 9/0 microphone 9/0 chat 9 share screen 9, active 1234, breathing 0");
}

TEST_F(FunctionTextsTest, TheDeviceKeepsTheClickModeAfterUnInit) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.SetClickMode(VELA_CLICK_MODE_ON, 300), 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.GetClickMode(), 0U);
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.GetClickMode(), 1U);
}

// Presence_test.cpp tests the opposite order.
TEST_F(FunctionTextsTest, ADetachableTouchpadsNameDecidesForLaterOnesThatStay) {
    Plug(DetachableTouchpad());
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.IsDetachable(), 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    Unplug();
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.IsDetachable(), 1);
    Unplug();
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
}

}  // namespace
}  // namespace acceptance
