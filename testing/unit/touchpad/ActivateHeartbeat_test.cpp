// The heartbeat of a detachable touchpad follows the activation state.
#include "testing/kit/native/TouchpadTest.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kCreated = "INFO HeartbeatThread: HeartbeatThread created.";
const std::string kLeft = "INFO HeartbeatThread: HeartbeatThread leaved.";
const std::string kStateRequested = "INFO UpdateVelaState: UpdateVelaState.";

class ActivateHeartbeatTest : public TouchpadTest {
 protected:
    void OpenAndActivate(std::uint32_t value) {
        ASSERT_NO_FATAL_FAILURE(Open(DetachableLayout()));
        ASSERT_TRUE(session_.Activate(value));
        ASSERT_TRUE(log_.WaitForLine("HeartbeatThread created."));
    }
};

class ActiveValue : public ActivateHeartbeatTest,
                    public testing::WithParamInterface<std::uint32_t> {};

TEST_P(ActiveValue, StartsTheHeartbeat) {
    OpenAndActivate(GetParam());
    EXPECT_THAT(LogOf("HeartbeatThread"), ElementsAre(kCreated));
}

TEST_P(ActiveValue, ReplacesARunningHeartbeat) {
    OpenAndActivate(GetParam());
    session_.Activate(1 - GetParam());
    EXPECT_TRUE(log_.WaitForLine("HeartbeatThread created.", 2));
    EXPECT_THAT(LogOf("HeartbeatThread"), ElementsAre(kCreated, kLeft, kCreated));
}

INSTANTIATE_TEST_SUITE_P(Values, ActiveValue,
                         testing::Values(vela::kActive, vela::kActiveHostSetsLights));

class EndingValue : public ActivateHeartbeatTest,
                    public testing::WithParamInterface<std::uint32_t> {};

TEST_P(EndingValue, StopsTheHeartbeat) {
    OpenAndActivate(vela::kActive);
    session_.Activate(GetParam());
    EXPECT_TRUE(log_.WaitForLine("HeartbeatThread leaved."));
    EXPECT_THAT(LogOf("HeartbeatThread"), ElementsAre(kCreated, kLeft));
}

TEST_P(EndingValue, IsFollowedByANewHeartbeatOnTheNextActivation) {
    OpenAndActivate(vela::kActive);
    session_.Activate(GetParam());
    session_.Activate(vela::kActive);
    EXPECT_TRUE(log_.WaitForLine("HeartbeatThread created.", 2));
    EXPECT_THAT(LogOf("HeartbeatThread"), ElementsAre(kCreated, kLeft, kCreated));
}

INSTANTIATE_TEST_SUITE_P(Values, EndingValue,
                         testing::Values(vela::kDeactivated, vela::kSuspended));

TEST_F(ActivateHeartbeatTest, OtherValuesLeaveTheHeartbeatRunning) {
    OpenAndActivate(vela::kActive);
    for (const std::uint32_t value : {2U, 3U, 6U}) session_.Activate(value);
    // A heartbeat that was stopped would log its line before Settle's.
    ASSERT_NO_FATAL_FAILURE(Settle());
    session_.Activate(vela::kDeactivated);
    EXPECT_TRUE(log_.WaitForLine("HeartbeatThread leaved."));
    std::vector<std::string> order;
    for (const std::string& text : log_.Texts()) {
        if (text == kLeft || text == kStateRequested) order.push_back(text);
    }
    EXPECT_THAT(order, ElementsAre(kStateRequested, kLeft));
}

TEST_F(ActivateHeartbeatTest, AFixedTouchpadHasNone) {
    Open();
    for (const std::uint32_t value : {0U, 1U, 4U, 5U, 0U}) session_.Activate(value);
    session_.Uninitialize();
    EXPECT_THAT(LogOf("HeartbeatThread"), IsEmpty());
}

TEST_F(ActivateHeartbeatTest, ATouchpadWithoutANameHasOne) {
    Plug();
    machine_.FailAlways("HidD_GetProductString", Fault::Error(31));
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    session_.Activate(vela::kActive);
    EXPECT_TRUE(log_.WaitForLine("HeartbeatThread created."));
}

}  // namespace
