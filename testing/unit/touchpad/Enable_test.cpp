// The switch for the feature as a whole.
#include "testing/kit/native/TouchpadTest.h"
#include "testing/kit/native/WrittenReports.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint8_t kFirmwareSwipeOff = 0x20;
constexpr std::uint8_t kFirmwareTouchpadDisable = 0x80;

const std::string kCannotUpdate =
    "INFO Update: Can't update Vela state because TemporaryDisable (1) or TabletModeDisable (0)";

// All four buttons are shown, no light is toggled, and chat does not breathe.
class EnableTest : public TouchpadTest {
 protected:
    std::vector<Bytes> Written() { return WrittenReports(session_, *device_); }

    // Sends the touchpad's report and waits for the session's status callback.
    void Receive(const Bytes& report, const std::string& status) {
        HostCallbacks::Reset();
        device_->SendInput(report);
        ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
        ASSERT_THAT(HostCallbacks::Calls(), ElementsAre(status));
        HostCallbacks::Reset();
    }
    void DisableByGesture() { Receive(InputReport({kGesture}), "status 2"); }
};

TEST_F(EnableTest, IsRefusedSilentlyWithoutASession) {
    Plug();
    EXPECT_FALSE(session_.Enable(true));
    EXPECT_FALSE(session_.IsEnabled());
    EXPECT_FALSE(session_.Enable(false));
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(EnableTest, IsOffAtFirst) {
    Open();
    EXPECT_FALSE(session_.IsEnabled());
}

TEST_F(EnableTest, LightsWhatIsShown) {
    OpenAndLight();
    session_.Enable(false);
    Written();
    EXPECT_TRUE(session_.Enable(true));
    EXPECT_TRUE(session_.IsEnabled());
    EXPECT_THAT(Written(), ElementsAre(AllLit()));
    EXPECT_THAT(LogOf("Enable"),
                ElementsAre("INFO Enable: Enable HID (1)", "INFO Enable: Enable HID (0)",
                            "INFO Enable: Enable HID (1)"));
}

TEST_F(EnableTest, AnUnchangedReportIsNotWrittenAgain) {
    OpenAndLight();
    EXPECT_TRUE(session_.Enable(true));
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(EnableTest, DisablingStopsTheBreathingAndThenDarkensEverything) {
    OpenAndLight();
    EXPECT_TRUE(session_.Enable(false));
    EXPECT_FALSE(session_.IsEnabled());
    // The first report is forced and still lit.
    EXPECT_THAT(Written(), ElementsAre(AllLit(), BlankReport()));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());

    const std::vector<std::string> texts = log_.Texts();
    ASSERT_GE(texts.size(), 3U);
    EXPECT_THAT(
        std::vector<std::string>(texts.end() - 3, texts.end()),
        ElementsAre("INFO SetButtonBreathing: SetButtonBreathing for BUTTON_ID 2 (0)",
                    "INFO Enable: Enable HID (0)", "INFO UpdateVelaState: UpdateVelaState."));
}

TEST_F(EnableTest, DisablingEndsARunningBreathing) {
    OpenAndLight();
    session_.EnableButtonBreathing(vela::BUTTON_ID_CHAT, true);
    session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
    Written();
    session_.Enable(false);
    EXPECT_THAT(Written(), ElementsAre(AllLit(), BlankReport()));
    session_.Enable(true);
    EXPECT_THAT(Written(), ElementsAre(AllLit()));
}

TEST_F(EnableTest, DisablingTwiceIsLoggedTwice) {
    Open();
    EXPECT_TRUE(session_.Enable(false));
    EXPECT_TRUE(session_.Enable(false));
    EXPECT_THAT(LogOf("Enable"),
                ElementsAre("INFO Enable: Enable HID (0)", "INFO Enable: Enable HID (0)"));
}

// --- a temporary disable -------------------------------------------------------------------------

TEST_F(EnableTest, DisablingEndsATemporaryDisableAndNotifiesTheHost) {
    OpenAndLight();
    DisableByGesture();
    EXPECT_TRUE(session_.Enable(false));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0"));
    EXPECT_EQ(HostCallbacks::LastThread(), std::this_thread::get_id());
    EXPECT_THAT(Written(), ElementsAre(AllLit(), BlankReport()));
    EXPECT_THAT(LogOf("Update"), IsEmpty());
}

TEST_F(EnableTest, TheHostIsNotifiedWhileTheFeatureIsStillOnAndLightsCanBeSet) {
    OpenAndLight();
    DisableByGesture();
    bool enabledMeanwhile = false;
    HostCallbacks::DuringStatusChange([&] {
        enabledMeanwhile = session_.IsEnabled();
        session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    });
    session_.Enable(false);
    EXPECT_TRUE(enabledMeanwhile);
    const Bytes cameraToggled =
        LightReport("camera on 3, microphone off 3, chat 3, share screen 3; all active");
    EXPECT_THAT(Written(), ElementsAre(cameraToggled, cameraToggled, BlankReport()));
}

TEST_F(EnableTest, TheCallbackMayCallEveryOperationOfTheSession) {
    OpenAndLight();
    DisableByGesture();
    HostCallbacks::DuringStatusChange([this] {
        HostCallbacks::DuringStatusChange(nullptr);
        session_.Enable(true);
        session_.Activate(vela::kActiveHostSetsLights);
        session_.EnableButton(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
        session_.SetBrightness(9);
        session_.SetClickMode(1, 300);
        session_.IsDetachable();
        bool connected = false;
        session_.GetDeviceConnectState(connected);
    });
    EXPECT_TRUE(session_.Enable(false));
    EXPECT_FALSE(session_.IsEnabled());
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0", "status 1"));
}

TEST_F(EnableTest, EnablingLeavesATemporaryDisableAlone) {
    OpenAndLight();
    DisableByGesture();
    EXPECT_TRUE(session_.Enable(true));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_THAT(LogOf("Update"), ElementsAre(kCannotUpdate));
}

TEST_F(EnableTest, DisablingLeavesATemporaryDisableAloneWithoutACallback) {
    OpenAndLight();
    DisableByGesture();
    session_.SetStatusChangeCallback(nullptr);
    EXPECT_TRUE(session_.Enable(false));
    EXPECT_FALSE(session_.IsEnabled());
    EXPECT_THAT(Written(), IsEmpty());
    // One line for stopping the breathing, one for disabling.
    EXPECT_THAT(LogOf("Update"), ElementsAre(kCannotUpdate, kCannotUpdate));
}

TEST_F(EnableTest, DisablingLeavesATemporaryDisableAloneOutsideTheActiveStates) {
    OpenAndLight();
    DisableByGesture();
    session_.Activate(vela::kSuspended);
    HostCallbacks::Reset();
    EXPECT_TRUE(session_.Enable(false));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(LogOf("Update"), ElementsAre(kCannotUpdate, kCannotUpdate, kCannotUpdate));
}

TEST_F(EnableTest, DisablingLeavesBothFlagsAloneWhileTheTouchpadIsOff) {
    OpenAndLight();
    Receive(InputReport({}, kFirmwareSwipeOff | kFirmwareTouchpadDisable), "status 3");
    EXPECT_TRUE(session_.Enable(false));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_THAT(Written(), IsEmpty());
    const std::string line =
        "INFO Update: Can't update Vela state because TemporaryDisable (1) or TabletModeDisable "
        "(1)";
    EXPECT_THAT(LogOf("Update"), ElementsAre(line, line));
}

TEST_F(EnableTest, DisablingReportsNothingWhenNothingWasDisabled) {
    OpenAndLight();
    Receive(InputReport({}, 0), "status 0");
    EXPECT_TRUE(session_.Enable(false));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
}

TEST_F(EnableTest, IsLoggedBeforeTheUpdateThatItAsksFor) {
    OpenAndLight();
    DisableByGesture();
    session_.Enable(true);
    const std::vector<std::string> lines = log_.Texts();
    ASSERT_THAT(lines, testing::SizeIs(testing::Ge(2U)));
    EXPECT_EQ(lines[lines.size() - 2], "INFO Enable: Enable HID (1)");
    EXPECT_EQ(lines.back(), kCannotUpdate);
}

}  // namespace
