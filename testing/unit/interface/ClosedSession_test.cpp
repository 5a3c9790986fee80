// The exports' results while no session is open.
#include "testing/kit/native/ExportsTest.h"

namespace {

using namespace kit;
using testing::Each;
using testing::IsEmpty;

class ClosedSessionTest : public ExportsTest {
 protected:
    void ExpectRefusals() {
        machine_.ForgetCalls();
        for (const VELA_BOOL flag : {0, 1}) {
            EXPECT_EQ(EnableFeature(flag), 0);
            EXPECT_EQ(EnableSingleButton(VELA_BUTTON_CAMERA, flag), 0);
            EXPECT_EQ(EnableChatBreathing(flag), 0);
            EXPECT_EQ(SetButtonLight(VELA_BUTTON_MICROPHONE, flag), 0);
            EXPECT_EQ(SetButtonVisible(VELA_BUTTON_CHAT, flag), 0);
            EXPECT_EQ(SetButtonBreathing(VELA_BUTTON_CHAT, flag), 0);
        }
        for (const std::uint32_t value : {0U, 1U, 4U, 5U}) EXPECT_EQ(Activate(value), 0);
        EXPECT_EQ(SetClickMode(1, 300), 0);
        EXPECT_EQ(GetClickMode(), 0U);
        EXPECT_EQ(UpdateVelaState(), 0);
        EXPECT_EQ(IsSupportBiDirectionSwipe(), 0);
        EXPECT_EQ(IsFeatureEnabled(), 0);
        EXPECT_EQ(IsActivated(), 0);
        EXPECT_EQ(IsSingleButtonEnabled(VELA_BUTTON_CAMERA), 0);
        EXPECT_EQ(IsChatBreathingEnabled(), 0);
        SetVelaBrightness(9);
        EXPECT_EQ(GetVelaBrightness(), 3U);
        EXPECT_THAT(machine_.CallTexts(), IsEmpty());
    }
};

TEST_F(ClosedSessionTest, RefusesEverythingSilentlyBeforeInit) {
    Plug();
    SetVelaButtonPressCallback(OnButtonPress);
    SetVelaStatusChangeCallback(OnStatusChange);
    ExpectRefusals();
    EXPECT_EQ(UnInit(), 0);
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_THAT(log_.Texts(), testing::SizeIs(1));  // UnInit's own
}

TEST_F(ClosedSessionTest, RefusesEverythingAfterUnInit) {
    OpenAndLight();
    UnInit();
    const std::size_t written = device_->Outputs().size();
    ExpectRefusals();
    EXPECT_EQ(UnInit(), 0);
    EXPECT_EQ(device_->Outputs().size(), written);
}

TEST_F(ClosedSessionTest, RefusesEverythingAfterAFailedInit) {
    Plug();
    device_->HoldElsewhere();
    EXPECT_EQ(Init(), VELA_INIT_HELD_BY_OTHER);
    ExpectRefusals();
    EXPECT_EQ(UnInit(), 0);
}

TEST_F(ClosedSessionTest, RefusedChangesDoNotShowInTheNextSession) {
    Plug();
    ExpectRefusals();
    ASSERT_EQ(Init(), 1);
    EXPECT_EQ(IsSingleButtonEnabled(VELA_BUTTON_CAMERA), 0);
    EXPECT_EQ(IsChatBreathingEnabled(), 0);
    EXPECT_EQ(IsFeatureEnabled(), 0);
    EXPECT_EQ(IsActivated(), 0);
}

TEST_F(ClosedSessionTest, AnUnknownTouchpadCountsAsDetachable) {
    EXPECT_EQ(IsDetachable(), 1);
    EXPECT_THAT(LogOf("IsDetachable"),
                Each("WARNING IsDetachable: GetProductString failed, GetLastError(6)."));
}

TEST_F(ClosedSessionTest, TheLastTouchpadsNameIsStillKnown) {
    Open();
    EXPECT_EQ(IsDetachable(), 0);
    UnInit();
    EXPECT_EQ(IsDetachable(), 0);
}

}  // namespace
