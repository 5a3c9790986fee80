// The heartbeat of a detachable touchpad, which may have lost its state while it was detached.
#include "testing/acceptance/DetachableTouchpad.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::Contains;
using testing::Not;

constexpr char kCreated[] = "{INFO @ HeartbeatThread} HeartbeatThread created.";
constexpr char kLeaved[] = "{INFO @ HeartbeatThread} HeartbeatThread leaved.";

class HeartbeatTest : public TouchpadAcceptanceTest {};

TEST_F(HeartbeatTest, BeginsWithTheActivationAndEndsWithTheSession) {
    Plug(DetachableTouchpad());
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.EnableFeature(1), 1);
    EXPECT_EQ(log_.CountLines(kCreated), 0U);
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
    EXPECT_TRUE(log_.WaitForLine(kCreated));
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_TRUE(log_.WaitForLine(kLeaved));
}

TEST_F(HeartbeatTest, ATouchpadThatStaysHasNone) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    for (const std::uint32_t activation : {0U, 1U, 4U, 0U, 5U, 0U}) {
        EXPECT_EQ(agent_.Activate(activation), 1);
    }
    EXPECT_EQ(agent_.UnInit(), 1);
    agent_.UnInitLogger();
    EXPECT_THAT(log_.Lines(), Not(Contains(kCreated)));
    EXPECT_THAT(log_.Lines(), Not(Contains(kLeaved)));
}

TEST_F(HeartbeatTest, EveryActivationBeginsItAnew) {
    Plug(DetachableTouchpad());
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS), 1);
    EXPECT_TRUE(log_.WaitForLine(kCreated, 2));
    EXPECT_EQ(log_.CountLines(kLeaved), 1U);
    // Activating with the current value does nothing.
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS), 1);
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_TRUE(log_.WaitForLine(kLeaved, 2));
    EXPECT_EQ(log_.CountLines(kCreated), 2U);
}

class HeartbeatStopTest : public TouchpadAcceptanceTest,
                          public testing::WithParamInterface<std::uint32_t> {};

INSTANTIATE_TEST_SUITE_P(, HeartbeatStopTest, testing::Values(VELA_DEACTIVATED, VELA_SUSPENDED),
                         testing::PrintToStringParamName());

TEST_P(HeartbeatStopTest, EndsAndAnActivationBeginsItAgain) {
    Plug(DetachableTouchpad());
    ASSERT_NO_FATAL_FAILURE(Open());
    for (std::size_t round = 1; round <= 3; ++round) {
        EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
        EXPECT_TRUE(log_.WaitForLine(kCreated, round));
        EXPECT_EQ(agent_.Activate(GetParam()), 1);
        EXPECT_TRUE(log_.WaitForLine(kLeaved, round));
    }
}

TEST_F(HeartbeatTest, OtherActivationsLeaveItRunning) {
    Plug(DetachableTouchpad());
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
    EXPECT_EQ(agent_.Activate(2), 1);
    EXPECT_EQ(agent_.Activate(3), 1);
    EXPECT_EQ(agent_.Activate(VELA_DEACTIVATED), 1);
    EXPECT_TRUE(log_.WaitForLine(kLeaved));
    EXPECT_EQ(agent_.UnInit(), 1);
    agent_.UnInitLogger();
    const std::vector<std::string> lines = log_.Lines();
    EXPECT_LT(std::find(lines.begin(), lines.end(), "{INFO @ Activate} Activate HID (3)"),
              std::find(lines.begin(), lines.end(), kLeaved));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), kCreated), 1);
}

class SlowHeartbeatTest : public TouchpadAcceptanceTest {
 protected:
    // Returns the next report that no call requested.
    std::vector<virtual_touchpad::OutputReport> NextBeat() {
        const std::uint64_t before = Touchpad().Device().LastSequence();
        return Touchpad().Device().WaitForOutputs(1, std::chrono::seconds(25), before);
    }
};

Lights LightsOf(const virtual_touchpad::OutputReport& report) {
    return virtual_touchpad::DecodeLights(report.bytes, {});
}

TEST_F(SlowHeartbeatTest, SendsADetachableTouchpadsLightsAgainAfterTwentySeconds) {
    ASSERT_NO_FATAL_FAILURE(OpenLit(DetachableTouchpad()));
    EXPECT_EQ(agent_.IsDetachable(), 1);
    const auto beat = NextBeat();
    ASSERT_EQ(beat.size(), 1U);
    EXPECT_TRUE(AllFourLit(LightsOf(beat[0])));
}

TEST_F(SlowHeartbeatTest, ContinuesABreathingLightAndLeavesAStoppedOneAlone) {
    ASSERT_NO_FATAL_FAILURE(OpenLit(DetachableTouchpad()));
    EXPECT_EQ(agent_.EnableChatBreathing(1), 1);
    EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 1), 1);
    ASSERT_TRUE(WaitForLights([](const Lights& lights) { return lights.breathing == 8; }));
    const auto breathing = NextBeat();
    ASSERT_EQ(breathing.size(), 1U);
    EXPECT_EQ(LightsOf(breathing[0]).breathing, 15);

    EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 0), 1);
    ASSERT_TRUE(WaitForLights(AllFourLit));
    const auto stopped = NextBeat();
    ASSERT_EQ(stopped.size(), 1U);
    EXPECT_TRUE(AllFourLit(LightsOf(stopped[0])));
}

// The firmware drives the lights then, so the heartbeat requests its state, which may be lost.
TEST_F(SlowHeartbeatTest, RequestsTheStateWhileTemporarilyDisabled) {
    ASSERT_NO_FATAL_FAILURE(OpenLit(DetachableTouchpad()));
    Touchpad().SendEvent(kGesture);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    ASSERT_EQ(HostCallbacks::Calls().back(), "status 2");
    const auto beat = NextBeat();
    ASSERT_EQ(beat.size(), 1U);
    EXPECT_TRUE(virtual_touchpad::IsStateRequest(beat[0]));
}

TEST_F(SlowHeartbeatTest, ATouchpadThatStaysGetsNone) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    EXPECT_TRUE(NextBeat().empty());
}

TEST_F(SlowHeartbeatTest, NoneComesAfterTheDeactivation) {
    ASSERT_NO_FATAL_FAILURE(OpenLit(DetachableTouchpad()));
    EXPECT_EQ(agent_.Activate(VELA_DEACTIVATED), 1);
    ASSERT_TRUE(WaitForLights(AllDark));
    EXPECT_TRUE(NextBeat().empty());
}

}  // namespace
}  // namespace acceptance
