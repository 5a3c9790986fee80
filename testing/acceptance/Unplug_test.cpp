// A touchpad that is unplugged while the host has it open, and plugged in again.
#include "testing/acceptance/DetachableTouchpad.h"
#include "testing/acceptance/ExportCalls.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::Contains;
using testing::ElementsAreArray;
using testing::Not;
using testing::StartsWith;

// The agent is not notified of the unplugging: a fixed touchpad counts as present while its session
// is open, a detachable one is probed each time.
struct Leaving {
    const char* name;
    TouchpadLayout layout;
    bool isDetachable;
    bool writeInFlight;
};

class UnplugTest : public TouchpadAcceptanceTest, public testing::WithParamInterface<Leaving> {
 protected:
    void OpenAndPullOut() {
        Plug(GetParam().layout);
        ASSERT_NO_FATAL_FAILURE(Open());
        LightAll();
        ASSERT_TRUE(WaitForLights(AllFourLit));
        if (GetParam().writeInFlight) {
            Touchpad().Device().HoldWrites(true);
            EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
            ASSERT_TRUE(Touchpad().Device().WaitForState(
                [](const VirtualHidState& state) { return state.heldWrites == 1; }, kPatience));
        }
        Unplug();
    }
};

INSTANTIATE_TEST_SUITE_P(
    , UnplugTest,
    testing::Values(Leaving{"Fixed", {}, false, false}, Leaving{"FixedWriting", {}, false, true},
                    Leaving{"Detachable", DetachableTouchpad(), true, false},
                    Leaving{"DetachableWriting", DetachableTouchpad(), true, true}),
    [](const auto& leaving) { return leaving.param.name; });

TEST_P(UnplugTest, PresenceFollowsTheKindOfTouchpadUntilTheSessionIsClosed) {
    ASSERT_NO_FATAL_FAILURE(OpenAndPullOut());
    EXPECT_EQ(agent_.IsVelaPresent(), GetParam().isDetachable ? 0 : 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    EXPECT_EQ(agent_.UnInit(), 0);
}

TEST_P(UnplugTest, EveryExportReturns) {
    ASSERT_NO_FATAL_FAILURE(OpenAndPullOut());
    const std::string detachable = GetParam().isDetachable ? "1" : "0";
    const std::string present = GetParam().isDetachable ? "0" : "1";
    EXPECT_THAT(CallEveryExportButUnInit(agent_), ElementsAreArray({
                                                      "Activate 1",
                                                      "EnableChatBreathing 1",
                                                      "EnableFeature 1",
                                                      "EnableSingleButton 1",
                                                      "GetClickMode 0",
                                                      "GetHapticTPIntensityLevel 0",
                                                      "GetVelaBrightness 3",
                                                      "Init 2",
                                                      "InitHapticTP 0",
                                                      "InitLogger -",
                                                      "IsActivated 1",
                                                      "IsChatBreathingEnabled 1",
                                                      ("IsDetachable " + detachable).c_str(),
                                                      "IsFeatureEnabled 1",
                                                      "IsHapticTPPresent 0",
                                                      "IsSingleButtonEnabled 1",
                                                      "IsSupportBiDirectionSwipe 1",
                                                      ("IsVelaPresent " + present).c_str(),
                                                      "SetButtonBreathing 1",
                                                      "SetButtonLight 1",
                                                      "SetButtonVisible 1",
                                                      "SetClickMode 0",
                                                      "SetHapticTPIntensityLevel 0",
                                                      "SetVelaBrightness -",
                                                      "SetVelaButtonPressCallback -",
                                                      "SetVelaStatusChangeCallback -",
                                                      "UnInitHapticTP 0",
                                                      "UnInitLogger -",
                                                      "UpdateVelaState 1",
                                                  }));
    EXPECT_EQ(agent_.UnInit(), 1);
}

TEST_P(UnplugTest, TheTouchpadWorksAgainAfterUnInitAndInit) {
    ASSERT_NO_FATAL_FAILURE(OpenAndPullOut());
    EXPECT_EQ(agent_.UnInit(), 1);
    Plug(GetParam().layout);
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_TRUE(WaitForLights(AllFourLit));
    Touchpad().Press(kCameraButton);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x20) == 3; }));
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    EXPECT_EQ(HostCallbacks::Calls().back(), "press 0 1");
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_TRUE(WaitForLights(AllDark));
}

class UnpluggedTest : public TouchpadAcceptanceTest {};

TEST_F(UnpluggedTest, AWriteInFlightFailsAndLeavesItsTwoLines) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    Touchpad().Device().HoldWrites(true);
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    ASSERT_TRUE(Touchpad().Device().WaitForState(
        [](const VirtualHidState& state) { return state.heldWrites == 1; }, kPatience));
    Unplug();
    EXPECT_EQ(agent_.UnInit(), 1);
    agent_.UnInitLogger();
    EXPECT_THAT(log_.Lines(),
                Contains(StartsWith("{ERROR @ WriteOutputReportInternal} GetOverlappedResult "
                                    "failed, the last error (")));
    EXPECT_THAT(log_.Lines(),
                Contains(StartsWith("{ERROR @ WriteOutputReportInternal} Write File failed with "
                                    "last error (")));
}

TEST_F(UnpluggedTest, NothingIsWrittenToADetachableOneThatIsGone) {
    ASSERT_NO_FATAL_FAILURE(OpenLit(DetachableTouchpad()));
    Unplug();
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    agent_.UnInitLogger();
    EXPECT_THAT(log_.Lines(), Not(Contains(StartsWith("{ERROR"))));
}

// The product string is read when it is first needed, which is too late after unplugging.
TEST_F(UnpluggedTest, OneWhoseNameWasNeverReadCountsAsDetachableAndGone) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    Unplug();
    EXPECT_EQ(agent_.IsDetachable(), 1);
    EXPECT_EQ(agent_.IsVelaPresent(), 0);
    EXPECT_EQ(agent_.UnInit(), 1);
    agent_.UnInitLogger();
    EXPECT_THAT(log_.Lines(), Contains(StartsWith("{WARNING @ IsDetachable} GetProductString "
                                                  "failed, GetLastError(")));
}

TEST_F(UnpluggedTest, AnotherInitFindsNothingAndLeavesTheSessionOpen) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    Unplug();
    EXPECT_EQ(agent_.Init(), VELA_INIT_NOT_FOUND);
    EXPECT_EQ(agent_.IsActivated(), 1);
    EXPECT_EQ(agent_.UnInit(), 1);
}

// The reader thread is inside the host's callback when the touchpad is unplugged.
TEST_F(UnpluggedTest, ACallbackMayBeRunningMeanwhile) {
    static HANDLE entered = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    static HANDLE mayLeave = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    Plug(DetachableTouchpad());
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    agent_.SetVelaButtonPressCallback([](std::uint32_t, std::uint32_t) {
        SetEvent(entered);
        WaitForSingleObject(mayLeave, INFINITE);
    });
    Touchpad().Press(kCameraButton);
    ASSERT_EQ(WaitForSingleObject(entered, 10000), WAIT_OBJECT_0);
    Unplug();
    SetEvent(mayLeave);
    EXPECT_EQ(agent_.UnInit(), 1);
}

}  // namespace
}  // namespace acceptance
