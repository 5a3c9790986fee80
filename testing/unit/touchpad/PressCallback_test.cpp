// Calls that a host may make inside its button press callback.
#include <thread>

#include "testing/kit/native/InputTest.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

// All four buttons shown, the camera's light on.
const Bytes kCameraOn =
    LightReport("camera on 3, microphone off 3, chat 3, share screen 3; all active");
const std::string kCameraSwitchedOn = "INFO SetButtonLight: SetButtonLight for BUTTON_ID 0 (1)";

class PressCallbackTest : public InputTest {
 protected:
    void PressCamera() { ASSERT_NO_FATAL_FAILURE(Receive(InputReport({kCameraButton}))); }
};

TEST_F(PressCallbackTest, TheHostMaySetTheLightItselfInActivationStateOne) {
    OpenAndLight({}, vela::kActiveHostSetsLights);
    HostCallbacks::DuringButtonPress(
        [this] { session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true); });
    PressCamera();
    EXPECT_THAT(Written(), ElementsAre(kCameraOn));
    PressCamera();
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1", "press 0 0"));
}

TEST_F(PressCallbackTest, TheLightIsSwitchedAfterTheCallback) {
    OpenAndLight();
    HostCallbacks::DuringButtonPress([this] {
        session_.SetButtonLight(vela::BUTTON_ID_CAMERA, false);
        session_.SetBrightness(5);
    });
    PressCamera();
    EXPECT_THAT(
        Written(),
        ElementsAre(
            AllLitAt(5),
            LightReport("camera on 5, microphone off 5, chat 5, share screen 5; all active")));
}

TEST_F(PressCallbackTest, TheNewLightIsThatOfThePressWhateverTheCallbackSet) {
    OpenAndLight();
    HostCallbacks::DuringButtonPress(
        [this] { session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true); });
    PressCamera();
    EXPECT_THAT(LogOf("SetButtonLight"), ElementsAre(kCameraSwitchedOn, kCameraSwitchedOn));
}

TEST_F(PressCallbackTest, TheActivationStateCountsAsTheCallbackLeftIt) {
    OpenAndLight();
    HostCallbacks::DuringButtonPress([this] { session_.Activate(vela::kActiveHostSetsLights); });
    PressCamera();
    EXPECT_THAT(LogOf("SetButtonLight"), IsEmpty());
}

TEST_F(PressCallbackTest, TheCallbackMayCallEveryOperationOfTheSession) {
    OpenAndLight();
    HostCallbacks::DuringButtonPress([this] {
        session_.Enable(false);
        session_.Enable(true);
        session_.Activate(vela::kSuspended);
        session_.Activate(vela::kActive);
        session_.EnableButton(vela::BUTTON_ID_AUDIO, false);
        session_.EnableButtonBreathing(vela::BUTTON_ID_CHAT, true);
        session_.SetButtonVisible(vela::BUTTON_ID_SHARE_SCREEN, false);
        session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
        session_.SetBrightness(9);
        session_.SetClickMode(1, 300);
        session_.GetClickMode();
        session_.UpdateVelaState();
        session_.IsButtonEnabled(vela::BUTTON_ID_CAMERA);
        session_.IsDetachable();
        bool connected = false;
        session_.GetDeviceConnectState(connected);
        session_.SetButtonPressCallback(nullptr);
    });
    PressCamera();
    EXPECT_THAT(HostCallbacks::Calls(), testing::Contains("press 0 1"));
    HostCallbacks::Reset();
    PressCamera();
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
}

TEST_F(PressCallbackTest, ASlowCallbackDoesNotHoldUpOtherThreadsOfTheHost) {
    OpenAndLight();
    bool done = false;
    HostCallbacks::DuringButtonPress([&] {
        std::thread host([&] {
            session_.SetButtonLight(vela::BUTTON_ID_AUDIO, true);
            session_.Activate(vela::kActiveHostSetsLights);
            done = session_.UpdateVelaState();
        });
        host.join();
    });
    PressCamera();
    EXPECT_TRUE(done);
}

}  // namespace
