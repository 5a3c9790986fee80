// Presses of the four buttons: the callback, and the lights that change.
#include <tuple>

#include "testing/kit/native/InputTest.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

struct Button {
    std::uint16_t usage;
    std::uint32_t id;
    const char* line;
    const char* disabledLine;
    bool togglesLight;
    Bytes lightOn;  // all shown, this button's light on

    std::string Press(bool newLight) const {
        return "press " + std::to_string(id) + (newLight ? " 1" : " 0");
    }
    std::string LightLine(bool on) const {
        return "INFO SetButtonLight: SetButtonLight for BUTTON_ID " + std::to_string(id) +
               (on ? " (1)" : " (0)");
    }
};

void PrintTo(const Button& button, std::ostream* stream) { *stream << "button " << button.id; }

const Button kButtons[] = {
    {kCameraButton, vela::BUTTON_ID_CAMERA, "camera", "CAMERA", true,
     LightReport("camera on 3, microphone off 3, chat 3, share screen 3; all active")},
    {kShareScreenButton, vela::BUTTON_ID_SHARE_SCREEN, "share screen", "SHARE_SCREEN", false,
     AllLit()},
    {kChatButton, vela::BUTTON_ID_CHAT, "chat", "CHAT", false, AllLit()},
    {kMicrophoneButton, vela::BUTTON_ID_AUDIO, "mic", "AUDIO", true,
     LightReport("camera off 3, microphone on 3, chat 3, share screen 3; all active")},
};

std::string PressLine(const Button& button) {
    return std::string("INFO HandleInputReport: Handle HID output report for ") + button.line +
           " button";
}

std::string DisabledLine(const Button& button) {
    return std::string("INFO HandleInputReport: ") + button.disabledLine + " is disabled";
}

// --- every button, report layout and activation state --------------------------------------------

class EachPress
    : public InputTest,
      public testing::WithParamInterface<std::tuple<Button, std::uint8_t, std::uint32_t>> {
 protected:
    void Open() { OpenAndLight(BothLayouts(), Activation()); }
    void Press() {
        ASSERT_NO_FATAL_FAILURE(Receive(InputReport({ItsButton().usage}, 0, ReportId())));
    }

    const Button& ItsButton() const { return std::get<0>(GetParam()); }
    std::uint8_t ReportId() const { return std::get<1>(GetParam()); }
    std::uint32_t Activation() const { return std::get<2>(GetParam()); }
    // In activation state 1 the host sets the lights, so none follows the press.
    bool LightFollows() const { return ItsButton().togglesLight && Activation() != 1; }
};

TEST_P(EachPress, ReportsTheNewLightAndSetsItWhereItFollows) {
    Open();
    Press();
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre(ItsButton().Press(true)));
    EXPECT_NE(HostCallbacks::LastThread(), std::this_thread::get_id());
    if (LightFollows() && Activation() == 0) {
        EXPECT_THAT(Written(), ElementsAre(ItsButton().lightOn));
    } else {
        EXPECT_THAT(Written(), IsEmpty());
    }
    EXPECT_THAT(LogOf("HandleInputReport"), ElementsAre(PressLine(ItsButton())));
    if (LightFollows()) {
        EXPECT_THAT(LogOf("SetButtonLight"), ElementsAre(ItsButton().LightLine(true)));
    } else {
        EXPECT_THAT(LogOf("SetButtonLight"), IsEmpty());
    }
}

TEST_P(EachPress, ReportsTheOtherStateOnceTheLightIsOn) {
    Open();
    session_.SetButtonLight(ItsButton().id, true);
    Written();
    Press();
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre(ItsButton().Press(false)));
    if (LightFollows() && Activation() == 0) {
        EXPECT_THAT(Written(), ElementsAre(AllLit()));
    } else {
        EXPECT_THAT(Written(), IsEmpty());
    }
}

TEST_P(EachPress, TogglesOnEveryPressWhereTheLightFollows) {
    Open();
    Press();
    Press();
    Press();
    const bool second = !LightFollows();
    EXPECT_THAT(
        HostCallbacks::Calls(),
        ElementsAre(ItsButton().Press(true), ItsButton().Press(second), ItsButton().Press(true)));
}

TEST_P(EachPress, OfADisabledButtonIsOnlyLogged) {
    Open();
    session_.EnableButton(ItsButton().id, false);
    Written();
    Press();
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(LogOf("HandleInputReport"),
                ElementsAre(PressLine(ItsButton()), DisabledLine(ItsButton())));
    EXPECT_THAT(LogOf("SetButtonLight"), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Presses, EachPress,
                         testing::Combine(testing::ValuesIn(kButtons), testing::Values(0x01, 0x10),
                                          testing::Values(0U, 1U, 2U, 4U, 5U, 0x100U)));

// --- conditions that do not matter for a press ---------------------------------------------------

class ButtonPressTest : public InputTest {
 protected:
    void PressCamera() { ASSERT_NO_FATAL_FAILURE(Receive(InputReport({kCameraButton}))); }
};

TEST_F(ButtonPressTest, OfAHiddenButtonCountsAllTheSame) {
    OpenAndLight();
    session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, false);
    Written();
    PressCamera();
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1"));
    EXPECT_THAT(Written(), IsEmpty());
    session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, true);
    EXPECT_THAT(Written(), ElementsAre(kButtons[0].lightOn));
}

TEST_F(ButtonPressTest, CountsWhileTheFeatureIsDisabled) {
    OpenAndLight();
    session_.Enable(false);
    Written();
    PressCamera();
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1"));
    session_.Enable(true);
    EXPECT_THAT(Written(), ElementsAre(kButtons[0].lightOn));
}

TEST_F(ButtonPressTest, CountsWhileTheTouchpadIsDisabled) {
    OpenAndLight();
    ReceiveFirmwareState(kit::kFwSwipeOff);
    PressCamera();
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1"));
    EXPECT_THAT(Written(), IsEmpty());
    PressCamera();
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1", "press 0 0"));
    EXPECT_THAT(LogOf("Update"), ElementsAre(CannotUpdate(true, false), CannotUpdate(true, false)));
}

TEST_F(ButtonPressTest, WithoutACallbackSwitchesTheLightAllTheSame) {
    OpenAndLight();
    session_.SetButtonPressCallback(nullptr);
    PressCamera();
    EXPECT_THAT(Written(), ElementsAre(kButtons[0].lightOn));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
}

TEST_F(ButtonPressTest, NeedsNoStatusCallback) {
    OpenAndLight();
    session_.SetStatusChangeCallback(nullptr);
    PressCamera();
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1"));
}

TEST_F(ButtonPressTest, SwitchesTheLightInAReportThatIsNotForced) {
    OpenAndLight();
    session_.Activate(2);
    session_.SetButtonLight(9, false);
    Written();
    PressCamera();
    EXPECT_THAT(Written(), IsEmpty());
}

}  // namespace
