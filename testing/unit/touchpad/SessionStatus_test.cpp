// The session's switches, flags and callbacks, without a session.
#include "touchpad/SessionStatus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testing/kit/HostCallbacks.h"

namespace kit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vela::SessionStatus;

class SessionStatusTest : public testing::Test {
 protected:
    SessionStatusTest() { HostCallbacks::Reset(); }

    bool Activate(std::uint32_t value) {
        return status_.SetActivation(value, [this] { ++updates_; });
    }

    SessionStatus status_;
    int updates_ = 0;
};

TEST_F(SessionStatusTest, BeginsDeactivatedAndOff) {
    EXPECT_EQ(status_.Activation(), 4U);
    EXPECT_FALSE(status_.IsActivated());
    EXPECT_FALSE(status_.IsFeatureEnabled());
}

TEST_F(SessionStatusTest, OfAClosedSessionTakesNoChange) {
    EXPECT_FALSE(Activate(vela::kActive));
    status_.EnableFeature(true);
    EXPECT_FALSE(status_.IsActivated());
    EXPECT_FALSE(status_.IsFeatureEnabled());
    EXPECT_EQ(updates_, 0);
}

TEST_F(SessionStatusTest, OfAnOpenOneStoresTheStateAndUpdates) {
    status_.Open();
    EXPECT_TRUE(Activate(vela::kActiveHostSetsLights));
    status_.EnableFeature(true);
    EXPECT_TRUE(status_.IsActivated());
    EXPECT_TRUE(status_.IsFeatureEnabled());
    EXPECT_EQ(updates_, 1);
}

TEST_F(SessionStatusTest, TheNewStateIsInForceWhenItUpdates) {
    status_.Open();
    status_.SetActivation(vela::kSuspended, [this] { EXPECT_EQ(status_.Activation(), 5U); });
}

TEST_F(SessionStatusTest, ClosingSwitchesOffAndKeepsATemporaryDisable) {
    status_.Open();
    Activate(vela::kActive);
    status_.EnableFeature(true);
    status_.SetTemporaryDisable(true);
    status_.Close();
    EXPECT_EQ(status_.Activation(), 4U);
    EXPECT_FALSE(status_.IsFeatureEnabled());
    EXPECT_TRUE(status_.IsTemporarilyDisabled());
}

TEST_F(SessionStatusTest, OnlyDeactivatingEndsATemporaryDisable) {
    status_.Open();
    for (const std::uint32_t value : {0U, 1U, 2U, 5U}) {
        status_.SetTemporaryDisable(true);
        Activate(value);
        EXPECT_TRUE(status_.IsTemporarilyDisabled()) << value;
    }
    Activate(vela::kDeactivated);
    EXPECT_FALSE(status_.IsTemporarilyDisabled());
}

TEST_F(SessionStatusTest, TabletModeCountsBeforeATemporaryDisable) {
    EXPECT_EQ(status_.StatusOr(1), 1U);
    status_.SetFirmwareState(false, true);
    EXPECT_EQ(status_.StatusOr(1), 2U);
    status_.SetFirmwareState(true, true);
    EXPECT_EQ(status_.StatusOr(1), 3U);
}

TEST_F(SessionStatusTest, ReportsToTheCallbacksUntilTheyAreCleared) {
    status_.SetButtonPressCallback(OnButtonPress);
    status_.SetStatusChangeCallback(OnStatusChange);
    status_.ReportPress(3, true);
    status_.ReportStatus(2);
    status_.ReportStatusWhileActive(0);
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 3 1", "status 2"));
    HostCallbacks::Reset();
    status_.ClearCallbacks();
    EXPECT_FALSE(status_.HasStatusChangeCallback());
    status_.ReportPress(3, true);
    status_.ReportStatus(2);
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
}

TEST_F(SessionStatusTest, OfASessionClosedAgainTakesNoChange) {
    status_.Open();
    status_.Close();
    EXPECT_FALSE(Activate(vela::kActive));
    status_.EnableFeature(true);
    EXPECT_FALSE(status_.IsActivated());
    EXPECT_FALSE(status_.IsFeatureEnabled());
}

}  // namespace
}  // namespace kit
