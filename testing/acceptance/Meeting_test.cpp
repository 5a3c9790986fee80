// A whole meeting on the real HID stack: a host and a user with one touchpad.
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

class MeetingTest : public TouchpadAcceptanceTest {};

TEST_F(MeetingTest, LightsPressesBreathingGestureClickModeAndLeaving) {
    Plug();
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(WaitForLights(AllFourLit));

    // The camera's and the microphone's light follow their presses; the others' do not.
    Touchpad().Press(kCameraButton);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) {
        return lights.Brightness(0x20) == 3 && lights.Brightness(0x21) == 0;
    }));
    Touchpad().Press(kMicrophoneButton);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) {
        return lights.Brightness(0x26) == 3 && lights.Brightness(0x27) == 0;
    }));
    Touchpad().Press(kChatButton);
    Touchpad().Press(kShareScreenButton);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(5));
    EXPECT_THAT(HostCallbacks::Calls(),
                ElementsAre("status 0", "press 0 1", "press 1 1", "press 2 1", "press 3 1"));

    EXPECT_EQ(agent_.EnableChatBreathing(1), 1);
    EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 1), 1);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.breathing == 8; }));
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 0), 1);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.breathing == 15; }));
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_MICROPHONE, 0), 1);
    EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 0), 1);
    EXPECT_TRUE(WaitForLights(AllFourLit));

    Touchpad().SendEvent(kGesture);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(6));
    EXPECT_EQ(HostCallbacks::Calls().back(), "status 2");
    Touchpad().SendEvent(kSync);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(7));
    EXPECT_EQ(HostCallbacks::Calls().back(), "status 0");

    EXPECT_EQ(agent_.SetClickMode(1, 300), 1);
    EXPECT_EQ(agent_.GetClickMode(), 1U);
    EXPECT_EQ(agent_.SetClickMode(0, 300), 1);
    EXPECT_EQ(agent_.GetClickMode(), 0U);

    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_TRUE(WaitForLights(AllDark));
    EXPECT_EQ(agent_.UnInit(), 0);
}

// A short meeting, with the log line by line.
TEST_F(MeetingTest, LeavesItsStoryInTheLog) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.EnableFeature(1), 1);
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
    EXPECT_EQ(agent_.EnableSingleButton(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(agent_.SetButtonVisible(VELA_BUTTON_CAMERA, 1), 1);
    agent_.SetVelaBrightness(9);
    Touchpad().Press(kCameraButton);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x20) == 9; }));
    EXPECT_EQ(agent_.SetClickMode(1, 300), 1);
    EXPECT_EQ(agent_.GetClickMode(), 1U);
    EXPECT_EQ(agent_.UnInit(), 1);
    agent_.UnInitLogger();

    EXPECT_THAT(
        log_.Lines(),
        ElementsAreArray({
            "{INFO @ ScanHIDInformation} GetHIDInformation PID (0x1234) FW version(0x63).",
            "{INFO @ Initialize} ================= CTandrelHID initialize start =================",
            "{INFO @ Initialize} ================= CTandrelHID initialize succeeded "
            "=================",
            "{INFO @ Enable} Enable HID (1)",
            "{INFO @ IsDetachable} Product string: vela virtual touchpad",
            "{INFO @ Activate} Activate HID (0)",
            "{INFO @ EnableButton} EnableButton button(0), enable(1)",
            "{INFO @ SetButtonVisible} SetButtonVisible for BUTTON_ID 0 (1)",
            "{INFO @ SetBrightness} SetBrightness (9)",
            "{INFO @ ReadInputReportThread} HandleInputReport reportID 0x1",
            "{INFO @ HandleInputReport} Handle HID output report for camera button",
            "{INFO @ SetButtonLight} SetButtonLight for BUTTON_ID 0 (1)",
            "{INFO @ SetClickMode} SetClickMode (1, 300) completed.",
            "{INFO @ GetClickMode} GetClickMode (300) succeed.",
            "{INFO @ Uninitialize} ================= Uninitialize starts. =================",
            "{INFO @ SetButtonBreathing} SetButtonBreathing for BUTTON_ID 2 (0)",
            "{INFO @ Enable} Enable HID (0)",
            "{INFO @ Uninitialize} Uninitialize, wait for read input report thread finish.",
            "{INFO @ Uninitialize} Uninitialize, wait for write output report thread finish.",
            "{INFO @ ~CHIDInformation} CHIDInformation clear device UsagePage (ff80),  Usage (80) "
            "information",
            "{INFO @ Uninitialize} ================= Uninitialize succeed. =================",
            "{INFO @ UnInitialize} Logger::UnInitialize",
        }));
}

TEST_F(MeetingTest, WithoutATouchpadNothingIsFound) {
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    EXPECT_EQ(agent_.Init(), VELA_INIT_NOT_FOUND);
    EXPECT_EQ(agent_.UnInit(), 0);
}

TEST_F(MeetingTest, ATouchpadMayBeOpenedAgain) {
    Plug();
    for (int meeting = 0; meeting < 3; ++meeting) {
        ASSERT_NO_FATAL_FAILURE(Open());
        LightAll();
        EXPECT_TRUE(WaitForLights(AllFourLit));
        EXPECT_EQ(agent_.UnInit(), 1);
        EXPECT_TRUE(WaitForLights(AllDark));
    }
}

TEST_F(MeetingTest, CallbacksMayCallBackIntoTheLibrary) {
    static AgentDll* agent = nullptr;
    agent = &agent_;
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll(VELA_ACTIVE_HOST_SETS_LIGHTS);
    agent_.SetVelaButtonPressCallback([](std::uint32_t button, std::uint32_t newLight) {
        agent->SetButtonLight(button, static_cast<VELA_BOOL>(newLight));
    });
    Touchpad().Press(kCameraButton);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x20) == 3; }));
}

TEST_F(MeetingTest, StrayArgumentsDoNoHarm) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    agent_.InitLogger(nullptr);
    agent_.SetVelaButtonPressCallback(nullptr);
    agent_.SetVelaStatusChangeCallback(nullptr);
    EXPECT_EQ(agent_.SetButtonLight(0xFFFFFFFF, -1), 1);
    EXPECT_EQ(agent_.IsSingleButtonEnabled(7), 0);
    EXPECT_EQ(agent_.Activate(0xFFFFFFFF), 1);
    agent_.SetVelaBrightness(300);
    EXPECT_EQ(agent_.GetVelaBrightness(), 44U);
    EXPECT_EQ(agent_.SetClickMode(7, 5), 1);
    Touchpad().Press(kCameraButton);
    EXPECT_EQ(agent_.UnInit(), 1);
}

}  // namespace
}  // namespace acceptance
