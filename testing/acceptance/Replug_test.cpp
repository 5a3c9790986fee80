// A touchpad that was unplugged while the host had it open, and is plugged in again.
#include "testing/acceptance/DetachableTouchpad.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::ElementsAre;

class ReplugTest : public TouchpadAcceptanceTest {};

// Init without UnInit finds the new device but keeps the old one's session.
TEST_F(ReplugTest, OneThatCameBackIsReachedOnlyByANewSession) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    Unplug();
    Plug();
    EXPECT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_TRUE(
        log_.WaitForLine("{INFO @ Initialize} Initialize re-initialize, return true "
                         "immediately."));
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(Touchpad().Device().LastSequence(), 0U);

    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(WaitForLights(AllFourLit));
}

TEST_F(ReplugTest, PressesReachTheHostOnlyOnceItsCallbacksAreSetAgain) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    Touchpad().Press(kMicrophoneButton);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    Unplug();
    EXPECT_EQ(agent_.UnInit(), 1);
    Plug();
    ASSERT_EQ(agent_.Init(), VELA_INIT_OPEN);
    LightAll();
    // Without callbacks the light still follows the press.
    Touchpad().Press(kMicrophoneButton);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x26) == 3; }));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0", "press 1 1"));

    ASSERT_NO_FATAL_FAILURE(Open());
    Touchpad().Press(kMicrophoneButton);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(3));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0", "press 1 1", "press 1 0"));
}

TEST_F(ReplugTest, ItMayComeAndGoManyTimes) {
    for (int round = 0; round < 5; ++round) {
        SCOPED_TRACE(round);
        Plug(DetachableTouchpad());
        ASSERT_NO_FATAL_FAILURE(Open());
        LightAll();
        EXPECT_TRUE(WaitForLights(AllFourLit));
        Unplug();
        EXPECT_EQ(agent_.IsVelaPresent(), 0);
        EXPECT_EQ(agent_.UnInit(), 1);
    }
}

}  // namespace
}  // namespace acceptance
