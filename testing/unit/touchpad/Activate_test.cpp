// The activation state, and the effect of a change on buttons and lights.
#include "testing/kit/native/TouchpadTest.h"
#include "testing/kit/native/WrittenReports.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

class ActivateTest : public TouchpadTest {
 protected:
    std::vector<Bytes> Written() { return WrittenReports(session_, *device_); }

    void StartBreathing() {
        session_.EnableButtonBreathing(vela::BUTTON_ID_CHAT, true);
        session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
        ASSERT_THAT(Written(), testing::Contains(AllLit(8)));
    }
};

TEST_F(ActivateTest, IsRefusedSilentlyWithoutASession) {
    Plug();
    EXPECT_FALSE(session_.Activate(vela::kActive));
    EXPECT_FALSE(session_.Activate(vela::kDeactivated));
    EXPECT_FALSE(session_.IsActivated());
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(ActivateTest, IsDeactivatedAtFirst) {
    Open();
    EXPECT_FALSE(session_.IsActivated());
    EXPECT_TRUE(session_.Activate(vela::kDeactivated));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(LogOf("Activate"), IsEmpty());
}

class ActivationValue : public ActivateTest, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(ActivationValue, GivenAgainDoesNothing) {
    OpenAndLight({}, 6);
    EXPECT_TRUE(session_.Activate(GetParam()));
    Written();
    HostCallbacks::Reset();
    EXPECT_TRUE(session_.Activate(GetParam()));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_THAT(Written(), IsEmpty());
    const std::string number = std::to_string(static_cast<std::int32_t>(GetParam()));
    EXPECT_THAT(LogOf("Activate"), ElementsAre("INFO Activate: Activate HID (6)",
                                               "INFO Activate: Activate HID (" + number + ")"));
}

TEST_P(ActivationValue, IsActiveOnlyWhenZeroOrOne) {
    OpenAndLight({}, 6);
    session_.Activate(GetParam());
    EXPECT_EQ(session_.IsActivated(), GetParam() <= 1);
}

INSTANTIATE_TEST_SUITE_P(Values, ActivationValue,
                         testing::Values(0U, 1U, 2U, 3U, 4U, 5U, 7U, 0x100U, 0xFFFFFFFFU));

TEST_F(ActivateTest, BetweenTheActiveStatesTheLightsAreWrittenAgain) {
    OpenAndLight({}, vela::kActive);
    EXPECT_TRUE(session_.Activate(vela::kActiveHostSetsLights));
    EXPECT_THAT(Written(), ElementsAre(AllLit()));
    EXPECT_TRUE(session_.Activate(vela::kActive));
    EXPECT_THAT(Written(), ElementsAre(AllLit()));
}

class ValueWithoutMeaning : public ActivateTest,
                            public testing::WithParamInterface<std::uint32_t> {};

TEST_P(ValueWithoutMeaning, DarkensTheLightsAndKeepsTheButtons) {
    OpenAndLight();
    StartBreathing();
    EXPECT_TRUE(session_.Activate(GetParam()));
    EXPECT_THAT(Written(), ElementsAre(BlankReport()));
    EXPECT_TRUE(session_.Activate(vela::kActive));
    EXPECT_THAT(Written(), ElementsAre(AllLit(15)));
}

INSTANTIATE_TEST_SUITE_P(Values, ValueWithoutMeaning, testing::Values(2U, 3U, 6U, 0xFFFFFFFFU));

// --- 4: deactivated ------------------------------------------------------------------------------

TEST_F(ActivateTest, DeactivatingStopsTheBreathingWhileLitAndThenDarkens) {
    OpenAndLight();
    StartBreathing();
    EXPECT_TRUE(session_.Activate(vela::kDeactivated));
    EXPECT_THAT(Written(), ElementsAre(AllLit(0), BlankReport()));

    const std::vector<std::string> texts = log_.Texts();
    ASSERT_GE(texts.size(), 3U);
    EXPECT_THAT(
        std::vector<std::string>(texts.end() - 3, texts.end()),
        ElementsAre("INFO SetButtonBreathing: SetButtonBreathing for BUTTON_ID 2 (0)",
                    "INFO Activate: Activate HID (4)", "INFO UpdateVelaState: UpdateVelaState."));
}

TEST_F(ActivateTest, AfterDeactivatingTheButtonsAreEnabledButNoLongerVisible) {
    OpenAndLight();
    session_.Activate(vela::kDeactivated);
    session_.Activate(vela::kActive);
    Written();
    for (std::uint32_t button = 0; button < 4; ++button) {
        EXPECT_TRUE(session_.IsButtonEnabled(button));
    }
    session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, true);
    EXPECT_THAT(Written(), ElementsAre(LightReport("camera off 3; camera active")));
}

TEST_F(ActivateTest, DeactivatingIsWrittenEvenWhereNothingChanges) {
    // The lights are dark before and after; the report is written because it is forced.
    Open();
    session_.Activate(3);
    Written();
    EXPECT_TRUE(session_.Activate(vela::kDeactivated));
    EXPECT_THAT(Written(), ElementsAre(BlankReport(), BlankReport()));
}

// --- 5: suspended --------------------------------------------------------------------------------

TEST_F(ActivateTest, SuspendingDarkensWithoutStoppingTheBreathing) {
    OpenAndLight();
    StartBreathing();
    EXPECT_TRUE(session_.Activate(vela::kSuspended));
    EXPECT_THAT(Written(), ElementsAre(BlankReport()));
    EXPECT_TRUE(session_.Activate(vela::kActive));
    EXPECT_THAT(Written(), ElementsAre(AllLit(15)));
    EXPECT_THAT(LogOf("SetButtonBreathing"),
                ElementsAre("INFO SetButtonBreathing: SetButtonBreathing for BUTTON_ID 2 (1)"));
}

TEST_F(ActivateTest, SuspendedButtonsAreNotVisible) {
    OpenAndLight();
    session_.Activate(vela::kSuspended);
    // Another value in between does not restore the buttons.
    session_.Activate(2);
    session_.Activate(vela::kActive);
    EXPECT_THAT(Written(), ElementsAre(BlankReport(), BlankReport(), BlankReport()));
}

TEST_F(ActivateTest, ChangesMadeWhileSuspendedAreForgotten) {
    OpenAndLight();
    session_.Activate(vela::kSuspended);
    session_.EnableButton(vela::BUTTON_ID_CAMERA, false);
    session_.SetButtonLight(vela::BUTTON_ID_AUDIO, true);
    session_.SetButtonVisible(vela::BUTTON_ID_CHAT, false);
    session_.EnableButton(9, true);
    Written();
    session_.Activate(vela::kActiveHostSetsLights);
    EXPECT_THAT(Written(), ElementsAre(AllLit()));
    EXPECT_TRUE(session_.IsButtonEnabled(vela::BUTTON_ID_CAMERA));
}

TEST_F(ActivateTest, EverySuspensionSavesTheButtonsAnew) {
    OpenAndLight();
    session_.Activate(vela::kSuspended);
    session_.Activate(vela::kActive);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    Written();
    session_.Activate(vela::kSuspended);
    session_.Activate(vela::kActive);
    EXPECT_THAT(
        Written(),
        ElementsAre(
            BlankReport(),
            LightReport("camera on 3, microphone off 3, chat 3, share screen 3; all active")));
}

TEST_F(ActivateTest, FromSuspendedToDeactivatedNothingComesBack) {
    OpenAndLight();
    session_.Activate(vela::kSuspended);
    session_.Activate(vela::kDeactivated);
    Written();
    session_.Activate(vela::kActive);
    EXPECT_THAT(Written(), ElementsAre(BlankReport()));
}

}  // namespace
