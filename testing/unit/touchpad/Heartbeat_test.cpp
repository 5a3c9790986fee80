// The heartbeat of a detachable touchpad. The suite that waits for a beat is a slow one.
#include <thread>

#include "testing/kit/native/TouchpadTest.h"

namespace kit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kCreated[] = "HeartbeatThread created.";
constexpr char kLeaved[] = "HeartbeatThread leaved.";

class HeartbeatTest : public TouchpadTest {
 protected:
    bool WaitForCreated(std::size_t count = 1) { return log_.WaitForLine(kCreated, count); }
    bool WaitForLeaved(std::size_t count = 1) { return log_.WaitForLine(kLeaved, count); }
};

TEST_F(HeartbeatTest, StartsWithTheActivationOfADetachableTouchpad) {
    Open(DetachableLayout());
    session_.Activate(vela::kActive);
    EXPECT_TRUE(WaitForCreated());
}

TEST_F(HeartbeatTest, IsNoneOnATouchpadThatCannotBeTakenOff) {
    Open();
    session_.Activate(vela::kActive);
    session_.Activate(vela::kDeactivated);
    session_.Uninitialize();
    EXPECT_THAT(LogOf("HeartbeatThread"), IsEmpty());
}

TEST_F(HeartbeatTest, IsReplacedByEachNewActivation) {
    Open(DetachableLayout());
    session_.Activate(vela::kActive);
    ASSERT_TRUE(WaitForCreated());
    session_.Activate(vela::kActiveHostSetsLights);
    ASSERT_TRUE(WaitForCreated(2));
    session_.Activate(vela::kDeactivated);
    ASSERT_TRUE(WaitForLeaved(2));
    EXPECT_THAT(LogOf("HeartbeatThread"),
                ElementsAre(std::string("INFO HeartbeatThread: ") + kCreated,
                            std::string("INFO HeartbeatThread: ") + kLeaved,
                            std::string("INFO HeartbeatThread: ") + kCreated,
                            std::string("INFO HeartbeatThread: ") + kLeaved));
}

class HeartbeatStopTest : public HeartbeatTest,
                          public testing::WithParamInterface<std::uint32_t> {};

TEST_P(HeartbeatStopTest, LeavesAtOnceAndMayStartAgain) {
    Open(DetachableLayout());
    session_.Activate(vela::kActive);
    ASSERT_TRUE(WaitForCreated());
    session_.Activate(GetParam());
    EXPECT_TRUE(WaitForLeaved());
    session_.Activate(vela::kActive);
    EXPECT_TRUE(WaitForCreated(2));
}

INSTANTIATE_TEST_SUITE_P(DeactivatedAndSuspended, HeartbeatStopTest, testing::Values(4U, 5U));

TEST_F(HeartbeatTest, GoesOnInActivationStatesWithoutAMeaning) {
    Open(DetachableLayout());
    session_.Activate(vela::kActive);
    ASSERT_TRUE(WaitForCreated());
    session_.Activate(2);
    session_.Activate(3);
    session_.Activate(vela::kActiveHostSetsLights);  // joins the old thread, which ends only now
    EXPECT_TRUE(WaitForCreated(2));
    EXPECT_TRUE(WaitForLeaved(1));
}

TEST_F(HeartbeatTest, MayBeRestartedFromSeveralThreads) {
    Open(DetachableLayout());
    std::thread other([this] {
        for (std::uint32_t i = 0; i < 50; ++i) session_.Activate(i % 2);
    });
    for (std::uint32_t i = 0; i < 50; ++i) session_.Activate((i + 1) % 2);
    other.join();
    EXPECT_TRUE(session_.Uninitialize());
}

TEST_F(HeartbeatTest, LeftOverAtTheEndOfTheSessionEndsTheProcess) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(
        {
            vela::CTandrelHID session;
            Plug(DetachableLayout());
            session.Initialize(vela::ScanHIDInformation(&session));
            session.Activate(vela::kActive);
            session.Uninitialize();
        },
        "");
}

class SlowHeartbeatTest : public HeartbeatTest {
 protected:
    // Returns the next report, which is the next beat's.
    Bytes NextBeat() {
        device_->ForgetOutputs();
        for (int tries = 0; tries < 3; ++tries) {
            if (device_->WaitForOutputs(1)) return device_->Outputs()[0];
        }
        return {};
    }
};

TEST_F(SlowHeartbeatTest, SendsTheLastReportAgain) {
    OpenAndLight(DetachableLayout());
    EXPECT_EQ(NextBeat(), AllLit());
    EXPECT_EQ(NextBeat(), AllLit());
}

TEST_F(SlowHeartbeatTest, ContinuesABreathingLight) {
    OpenAndLight(DetachableLayout());
    session_.EnableButtonBreathing(vela::BUTTON_ID_CHAT, true);
    session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
    ASSERT_EQ(OutputNumber(1), AllLit(8));
    EXPECT_EQ(NextBeat(), AllLit(15));
    EXPECT_EQ(NextBeat(), AllLit(15));
}

// In tablet mode no new report is composed; the last one is sent again all the same.
TEST_F(SlowHeartbeatTest, SendsTheLastReportAgainInTabletMode) {
    OpenAndLight(DetachableLayout());
    device_->SendInput(InputReport({kDisabled}));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    EXPECT_EQ(NextBeat(), AllLit());
}

TEST_F(SlowHeartbeatTest, RequestsTheStateWhileTemporarilyDisabled) {
    OpenAndLight(DetachableLayout());
    device_->SendInput(InputReport({kGesture}));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    EXPECT_EQ(NextBeat(), RequestReport());
}

TEST_F(SlowHeartbeatTest, SendsNothingToATouchpadThatIsNotThere) {
    OpenAndLight(DetachableLayout());
    machine_.FailAlways("HidD_GetPreparsedData", Fault::Error(1167));
    machine_.ForgetCalls();
    // The beat queries the connection and does no more.
    ASSERT_TRUE(machine_.WaitForCalls("HidD_GetPreparsedData", 1) ||
                machine_.WaitForCalls("HidD_GetPreparsedData", 1) ||
                machine_.WaitForCalls("HidD_GetPreparsedData", 1));
    EXPECT_EQ(machine_.CountCalls("WriteFile"), 0U);
}

}  // namespace
}  // namespace kit
