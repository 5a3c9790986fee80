// The buttons' flags as the host sets and reads them.
#include "testing/kit/native/ExportsTest.h"
#include "testing/kit/native/WrittenReports.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

class ButtonExportsTest : public ExportsTest {
 protected:
    std::vector<Bytes> Written() { return WrittenReports(session_, *device_); }
};

// --- each button ---------------------------------------------------------------------------------

struct ButtonCase {
    std::uint32_t id;
    Bytes hidden;   // all shown but this one
    Bytes toggled;  // all shown, this one's light on
};

class EachButton : public ButtonExportsTest, public testing::WithParamInterface<ButtonCase> {};

TEST_P(EachButton, IsEnabledAndDisabled) {
    OpenAndLight();
    EXPECT_EQ(EnableSingleButton(GetParam().id, 0), 1);
    EXPECT_EQ(IsSingleButtonEnabled(GetParam().id), 0);
    EXPECT_EQ(EnableSingleButton(GetParam().id, 1), 1);
    EXPECT_EQ(IsSingleButtonEnabled(GetParam().id), 1);
    EXPECT_THAT(Written(), ElementsAre(GetParam().hidden, AllLit()));
    const std::string id = std::to_string(GetParam().id);
    EXPECT_THAT(
        LogOf("EnableButton"),
        testing::IsSupersetOf({"INFO EnableButton: EnableButton button(" + id + "), enable(0)",
                               "INFO EnableButton: EnableButton button(" + id + "), enable(1)"}));
}

TEST_P(EachButton, IsShownAndHidden) {
    OpenAndLight();
    EXPECT_EQ(SetButtonVisible(GetParam().id, 0), 1);
    EXPECT_EQ(IsSingleButtonEnabled(GetParam().id), 1);
    EXPECT_EQ(SetButtonVisible(GetParam().id, 1), 1);
    EXPECT_THAT(Written(), ElementsAre(GetParam().hidden, AllLit()));
    const std::string id = std::to_string(GetParam().id);
    EXPECT_THAT(LogOf("SetButtonVisible"),
                testing::IsSupersetOf(
                    {"INFO SetButtonVisible: SetButtonVisible for BUTTON_ID " + id + " (0)",
                     "INFO SetButtonVisible: SetButtonVisible for BUTTON_ID " + id + " (1)"}));
}

TEST_P(EachButton, HasItsLightSet) {
    OpenAndLight();
    EXPECT_EQ(SetButtonLight(GetParam().id, 1), 1);
    EXPECT_EQ(SetButtonLight(GetParam().id, 0), 1);
    if (GetParam().toggled == AllLit()) {
        EXPECT_THAT(Written(), IsEmpty());
    } else {
        EXPECT_THAT(Written(), ElementsAre(GetParam().toggled, AllLit()));
    }
    const std::string id = std::to_string(GetParam().id);
    EXPECT_THAT(LogOf("SetButtonLight"),
                ElementsAre("INFO SetButtonLight: SetButtonLight for BUTTON_ID " + id + " (1)",
                            "INFO SetButtonLight: SetButtonLight for BUTTON_ID " + id + " (0)"));
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, EachButton,
    testing::Values(
        ButtonCase{
            VELA_BUTTON_CAMERA,
            LightReport(
                "microphone off 3, chat 3, share screen 3; microphone, chat, share screen active"),
            LightReport("camera on 3, microphone off 3, chat 3, share screen 3; all active")},
        ButtonCase{
            VELA_BUTTON_MICROPHONE,
            LightReport("camera off 3, chat 3, share screen 3; camera, chat, share screen active"),
            LightReport("camera off 3, microphone on 3, chat 3, share screen 3; all active")},
        ButtonCase{VELA_BUTTON_CHAT,
                   LightReport("camera off 3, microphone off 3, share screen 3; camera, "
                               "microphone, share screen active"),
                   AllLit()},
        ButtonCase{
            VELA_BUTTON_SHARE_SCREEN,
            LightReport("camera off 3, microphone off 3, chat 3; camera, microphone, chat active"),
            AllLit()}));

TEST_F(ButtonExportsTest, AreDisabledAtFirst) {
    Open();
    for (std::uint32_t id = 0; id < 4; ++id) EXPECT_EQ(IsSingleButtonEnabled(id), 0);
    EXPECT_EQ(IsChatBreathingEnabled(), 0);
}

TEST_F(ButtonExportsTest, AnUnchangedFlagIsNotWrittenAgain) {
    OpenAndLight();
    EXPECT_EQ(EnableSingleButton(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(SetButtonVisible(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(SetButtonLight(VELA_BUTTON_CAMERA, 0), 1);
    EXPECT_EQ(EnableChatBreathing(0), 1);
    EXPECT_THAT(Written(), IsEmpty());
}

// --- breathing of the chat light -----------------------------------------------------------------

TEST_F(ButtonExportsTest, ChatBreathingIsAllowedStartedAndStopped) {
    OpenAndLight();
    EXPECT_EQ(EnableChatBreathing(1), 1);
    EXPECT_EQ(IsChatBreathingEnabled(), 1);
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_EQ(SetButtonBreathing(VELA_BUTTON_CHAT, 1), 1);
    EXPECT_EQ(SetButtonLight(VELA_BUTTON_SHARE_SCREEN, 1), 1);
    EXPECT_EQ(SetButtonBreathing(VELA_BUTTON_CHAT, 0), 1);
    EXPECT_THAT(Written(), ElementsAre(AllLit(8), AllLit(15), AllLit(0)));
    EXPECT_THAT(LogOf("SetButtonBreathing"),
                ElementsAre("INFO SetButtonBreathing: SetButtonBreathing for BUTTON_ID 2 (1)",
                            "INFO SetButtonBreathing: SetButtonBreathing for BUTTON_ID 2 (0)"));
}

TEST_F(ButtonExportsTest, ForbiddingChatBreathingEndsIt) {
    OpenAndLight();
    EnableChatBreathing(1);
    SetButtonBreathing(VELA_BUTTON_CHAT, 1);
    Written();
    EXPECT_EQ(EnableChatBreathing(0), 1);
    EXPECT_EQ(IsChatBreathingEnabled(), 0);
    EXPECT_THAT(
        LogOf("EnableButtonBreathing"),
        ElementsAre("INFO EnableButtonBreathing: EnableButtonBreathing button(2), enable(1)",
                    "INFO EnableButtonBreathing: EnableButtonBreathing button(2), "
                    "enable(0)"));
}

TEST_F(ButtonExportsTest, BreathingThatWasNotAllowedIsNotShown) {
    OpenAndLight();
    EXPECT_EQ(SetButtonBreathing(VELA_BUTTON_CHAT, 1), 1);
    EXPECT_THAT(Written(), ElementsAre(AllLit(0)));
}

TEST_F(ButtonExportsTest, BreathingReportsAreWrittenAlthoughUnchanged) {
    OpenAndLight();
    SetButtonBreathing(VELA_BUTTON_CHAT, 0);
    SetButtonBreathing(VELA_BUTTON_CAMERA, 1);
    EXPECT_THAT(Written(), ElementsAre(AllLit(), AllLit()));
}

// --- arguments that mean true --------------------------------------------------------------------

class TrueArgument : public ButtonExportsTest, public testing::WithParamInterface<VELA_BOOL> {};

TEST_P(TrueArgument, IsAnyOtherNumberThanZero) {
    Open();
    EXPECT_EQ(EnableFeature(GetParam()), 1);
    EXPECT_EQ(IsFeatureEnabled(), 1);
    EXPECT_EQ(EnableSingleButton(VELA_BUTTON_CAMERA, GetParam()), 1);
    EXPECT_EQ(IsSingleButtonEnabled(VELA_BUTTON_CAMERA), 1);
    EXPECT_EQ(EnableChatBreathing(GetParam()), 1);
    EXPECT_EQ(IsChatBreathingEnabled(), 1);
    EXPECT_EQ(SetButtonVisible(VELA_BUTTON_CAMERA, GetParam()), 1);
    EXPECT_EQ(SetButtonLight(VELA_BUTTON_CAMERA, GetParam()), 1);
    EXPECT_EQ(SetButtonBreathing(VELA_BUTTON_CHAT, GetParam()), 1);
    EXPECT_EQ(Activate(VELA_ACTIVE), 1);
    Written();
    SetButtonVisible(VELA_BUTTON_CHAT, 1);
    SetButtonBreathing(VELA_BUTTON_CHAT, GetParam());
    EnableSingleButton(VELA_BUTTON_CHAT, 1);
    EXPECT_THAT(
        Written(),
        testing::Contains(LightReport("camera on 3, chat 3, breathing 8; camera, chat active")));
}

INSTANTIATE_TEST_SUITE_P(Numbers, TrueArgument,
                         testing::Values(1, 2, 0x100, 0x10000, -1, INT32_MIN));

}  // namespace
