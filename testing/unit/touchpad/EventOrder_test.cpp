// The order of the status callback and the light reports of an event, calls inside the callback,
// and the effect of events on a breathing light.
#include "testing/kit/native/InputTest.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

// --- order ---------------------------------------------------------------------------------------

class EventOrderTest : public InputTest {
 protected:
    // The host lights the camera in its callback, so the light shows in the reports after it.
    void LightTheCameraWhenNotified() {
        HostCallbacks::DuringStatusChange(
            [this] { session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true); });
    }
};

const Bytes kCameraOn =
    LightReport("camera on 3, microphone off 3, chat 3, share screen 3; all active");

TEST_F(EventOrderTest, SyncNotifiesTheHostAfterBothReports) {
    OpenAndLight();
    LightTheCameraWhenNotified();
    Receive(InputReport({kSync}));
    EXPECT_THAT(Written(), ElementsAre(AllLit(), AllLit(), kCameraOn));
}

TEST_F(EventOrderTest, EnabledNotifiesTheHostBeforeItsReports) {
    OpenAndLight();
    LightTheCameraWhenNotified();
    Receive(InputReport({kEnabled}));
    // The reports of the host's call and the forced one; the last equals the host's and is dropped.
    EXPECT_THAT(Written(), ElementsAre(kCameraOn, kCameraOn));
}

TEST_F(EventOrderTest, TheFlagsAreInForceWhenTheHostIsNotified) {
    OpenAndLight();
    HostCallbacks::DuringStatusChange([this] { TryUpdate(); });
    Receive(InputReport({kGesture}));
    Receive(InputReport({kSync}));
    Receive(InputReport({kDisabled}));
    Receive(InputReport({kEnabled}));
    EXPECT_THAT(HostCallbacks::Calls(),
                ElementsAre("status 2", "status 0", "status 3", "status 0"));
    EXPECT_THAT(LogOf("Update"), ElementsAre(CannotUpdate(true, false), CannotUpdate(false, true)));
}

// --- a breathing chat light ----------------------------------------------------------------------

class BreathingEvent : public InputTest,
                       public testing::WithParamInterface<std::vector<std::uint16_t>> {
 protected:
    void OpenBreathing() {
        OpenAndLight();
        session_.EnableButtonBreathing(vela::BUTTON_ID_CHAT, true);
        session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
        ASSERT_THAT(Written(), ElementsAre(AllLit(8)));
    }
};

TEST_P(BreathingEvent, EndsTheBreathing) {
    OpenBreathing();
    for (const std::uint16_t usage : GetParam()) Receive(InputReport({usage}));
    const std::vector<Bytes> written = Written();
    ASSERT_THAT(written, testing::Not(IsEmpty()));
    EXPECT_THAT(written, testing::Each(AllLit()));
}

INSTANTIATE_TEST_SUITE_P(Events, BreathingEvent,
                         testing::Values(std::vector<std::uint16_t>{kSync},
                                         std::vector<std::uint16_t>{kEnabled},
                                         std::vector<std::uint16_t>{kGesture, kSync},
                                         std::vector<std::uint16_t>{kDisabled, kEnabled}));

TEST_F(BreathingEvent, AGestureOnlyPausesTheReports) {
    OpenBreathing();
    Receive(InputReport({kGesture}));
    EXPECT_THAT(Written(), IsEmpty());
    ReceiveFirmwareState(0);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    EXPECT_THAT(
        Written(),
        ElementsAre(LightReport(
            "camera on 3, microphone off 3, chat 3, share screen 3, breathing 15; all active")));
}

// --- hosts ---------------------------------------------------------------------------------------

class EventCallback : public InputTest, public testing::WithParamInterface<std::uint16_t> {};

TEST_P(EventCallback, MayCallEveryOperationOfTheSession) {
    OpenAndLight();
    HostCallbacks::DuringStatusChange([this] {
        HostCallbacks::DuringStatusChange(nullptr);
        session_.Enable(false);
        session_.Enable(true);
        session_.Activate(vela::kSuspended);
        session_.Activate(vela::kActiveHostSetsLights);
        session_.EnableButton(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
        session_.SetBrightness(9);
        session_.SetClickMode(1, 300);
        session_.UpdateVelaState();
        session_.IsDetachable();
        bool connected = false;
        session_.GetDeviceConnectState(connected);
        session_.SetStatusChangeCallback(nullptr);
    });
    Receive(InputReport({GetParam()}));
    EXPECT_GE(HostCallbacks::Calls().size(), 1U);
    HostCallbacks::Reset();
    Receive(InputReport({GetParam()}));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Events, EventCallback,
                         testing::Values(kSync, kGesture, kEnabled, kDisabled));

}  // namespace
