// The buttons' flags: the results, log lines and reports of a change.
#include "testing/kit/native/InputTest.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

class ButtonLightsTest : public InputTest {};

// --- the lights ----------------------------------------------------------------------------------

TEST_F(ButtonLightsTest, TheCamerasLightIsExchangedForTheOther) {
    Open();
    session_.Enable(true);
    session_.Activate(vela::kActive);
    session_.EnableButton(vela::BUTTON_ID_CAMERA, true);
    session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, true);
    Written();
    EXPECT_TRUE(session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true));
    EXPECT_TRUE(session_.SetButtonLight(vela::BUTTON_ID_CAMERA, false));
    EXPECT_THAT(Written(), ElementsAre(LightReport("camera on 3; camera active"),
                                       LightReport("camera off 3; camera active")));
}

TEST_F(ButtonLightsTest, TheShareScreensOnlyLightStaysAsItIs) {
    OpenAndLight();
    EXPECT_TRUE(session_.SetButtonLight(vela::BUTTON_ID_SHARE_SCREEN, true));
    // The report is composed nevertheless.
    EXPECT_EQ(machine_.CountCalls("HidP_SetUsages"), 1U);
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(ButtonLightsTest, FlagsSetWhileTheTouchpadIsDisabledShowAfterwards) {
    OpenAndLight();
    ReceiveFirmwareState(kit::kFwTouchpadDisable);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    session_.SetButtonVisible(vela::BUTTON_ID_SHARE_SCREEN, false);
    session_.SetBrightness(9);
    ReceiveFirmwareState(0);
    EXPECT_THAT(Written(), IsEmpty());
    TryUpdate();
    EXPECT_THAT(Written(),
                ElementsAre(LightReport(
                    "camera on 9, microphone off 9, chat 9; camera, microphone, chat active")));
    EXPECT_THAT(LogOf("Update"), ElementsAre(CannotUpdate(false, true), CannotUpdate(false, true),
                                             CannotUpdate(false, true)));
}

// --- the brightness ------------------------------------------------------------------------------

TEST_F(ButtonLightsTest, TheBrightnessIsIgnoredWithoutASession) {
    Plug();
    session_.SetBrightness(9);
    EXPECT_EQ(session_.GetBrightness(), 3);
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(ButtonLightsTest, AnUnchangedBrightnessIsLoggedAndNotWritten) {
    OpenAndLight();
    session_.SetBrightness(3);
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(LogOf("SetBrightness"), ElementsAre("INFO SetBrightness: SetBrightness (3)"));
}

TEST_F(ButtonLightsTest, TheBrightnessOutlivesTheSession) {
    OpenAndLight();
    session_.SetBrightness(255);
    session_.Uninitialize();
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    EXPECT_EQ(session_.GetBrightness(), 255);
    EXPECT_THAT(LogOf("SetBrightness"), ElementsAre("INFO SetBrightness: SetBrightness (255)"));
}

// --- the first state of a session ----------------------------------------------------------------

TEST_F(ButtonLightsTest, AreAllOffInANewSession) {
    OpenAndLight();
    for (std::uint32_t button = 0; button < 4; ++button) {
        session_.EnableButtonBreathing(button, true);
        session_.SetButtonLight(button, true);
    }
    session_.Uninitialize();
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    session_.Enable(true);
    session_.Activate(vela::kActive);
    for (std::uint32_t button = 0; button < 4; ++button) {
        EXPECT_FALSE(session_.IsButtonEnabled(button));
        EXPECT_FALSE(session_.IsButtonBreathingEnabled(button));
    }
    Written();
    for (std::uint32_t button = 0; button < 4; ++button) session_.EnableButton(button, true);
    EXPECT_THAT(Written(), IsEmpty());
    for (std::uint32_t button = 0; button < 4; ++button) session_.SetButtonVisible(button, true);
    const std::vector<Bytes> shown = Written();
    ASSERT_THAT(shown, testing::SizeIs(4));
    EXPECT_EQ(shown.back(), AllLit());
}

TEST_F(ButtonLightsTest, UnknownOnesCanBeSetAndDoNotCountAsEnabled) {
    OpenAndLight();
    EXPECT_TRUE(session_.EnableButton(7, true));
    EXPECT_TRUE(session_.EnableButtonBreathing(7, true));
    EXPECT_FALSE(session_.IsButtonEnabled(7));
    EXPECT_FALSE(session_.IsButtonBreathingEnabled(7));
    EXPECT_FALSE(session_.IsButtonEnabled(8));
}

TEST_F(ButtonLightsTest, AreNeitherEnabledNorBreathingWithoutASession) {
    for (const std::uint32_t button : {0U, 1U, 2U, 3U, 7U}) {
        EXPECT_FALSE(session_.IsButtonEnabled(button));
        EXPECT_FALSE(session_.IsButtonBreathingEnabled(button));
    }
}

TEST_F(ButtonLightsTest, TheBrightnessIsLoggedBeforeTheUpdateThatItAsksFor) {
    OpenAndLight();
    ReceiveFirmwareState(kit::kFwSwipeOff);
    session_.SetBrightness(9);
    const std::vector<std::string> lines = log_.Texts();
    ASSERT_THAT(lines, testing::SizeIs(testing::Ge(2U)));
    EXPECT_EQ(lines[lines.size() - 2], "INFO SetBrightness: SetBrightness (9)");
    EXPECT_EQ(lines.back(), CannotUpdate(true, false));
}

}  // namespace
