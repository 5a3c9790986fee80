// The status callbacks of a change of the activation state.
#include <algorithm>
#include <thread>

#include "testing/kit/native/TouchpadTest.h"
#include "testing/kit/native/WrittenReports.h"

namespace {

using simulator::WriteBehaviour;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint8_t kFirmwareSwipeOff = 0x20;
constexpr std::uint8_t kFirmwareTouchpadDisable = 0x80;

class ActivateStatusTest : public TouchpadTest {
 protected:
    // Sends the firmware's state, which the session stores and reports while it is active.
    void ReceiveFirmwareState(std::uint8_t state) {
        HostCallbacks::Reset();
        device_->SendInput(InputReport({}, state));
        ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
        HostCallbacks::Reset();
    }
};

struct StatusCase {
    std::uint8_t firmwareState;
    std::uint32_t before;  // active: the firmware's state is reported by a callback
    std::uint32_t value;
    std::vector<std::string> calls;
};

class ActivationStatus : public ActivateStatusTest,
                         public testing::WithParamInterface<StatusCase> {};

TEST_P(ActivationStatus, IsReportedOnTheHostsOwnThread) {
    OpenAndLight({}, GetParam().before);
    ReceiveFirmwareState(GetParam().firmwareState);
    EXPECT_TRUE(session_.Activate(GetParam().value));
    EXPECT_EQ(HostCallbacks::Calls(), GetParam().calls);
    EXPECT_EQ(HostCallbacks::LastThread(), std::this_thread::get_id());
}

INSTANTIATE_TEST_SUITE_P(
    Values, ActivationStatus,
    testing::Values(StatusCase{0, 1, 0, {"status 0"}}, StatusCase{0, 0, 1, {"status 1"}},
                    StatusCase{0, 0, 2, {"status 2"}}, StatusCase{0, 0, 3, {"status 3"}},
                    StatusCase{0, 0, 4, {"status 4", "status 4"}},
                    StatusCase{0, 0, 5, {"status 5"}},
                    StatusCase{0, 0, 0xFFFFFFFF, {"status 4294967295"}},
                    StatusCase{kFirmwareSwipeOff, 1, 0, {"status 2"}},
                    StatusCase{kFirmwareSwipeOff, 0, 1, {"status 2"}},
                    StatusCase{kFirmwareSwipeOff, 0, 4, {"status 4", "status 4"}},
                    StatusCase{kFirmwareSwipeOff, 0, 5, {"status 5"}},
                    StatusCase{kFirmwareTouchpadDisable, 1, 0, {"status 3"}},
                    StatusCase{kFirmwareTouchpadDisable, 0, 1, {"status 3"}},
                    StatusCase{kFirmwareTouchpadDisable, 0, 2, {"status 2"}},
                    StatusCase{kFirmwareTouchpadDisable, 0, 4, {"status 4", "status 4"}},
                    StatusCase{kFirmwareTouchpadDisable | kFirmwareSwipeOff, 1, 0, {"status 3"}}));

TEST_F(ActivateStatusTest, TheFirstOfADeactivationComesWhileStillActive) {
    OpenAndLight();
    std::vector<bool> active;
    HostCallbacks::DuringStatusChange([&] { active.push_back(session_.IsActivated()); });
    session_.Activate(vela::kDeactivated);
    EXPECT_THAT(active, ElementsAre(true, false));
}

TEST_F(ActivateStatusTest, TheNewStateIsInForceWhenTheHostIsNotified) {
    OpenAndLight({}, vela::kDeactivated);
    bool active = false;
    HostCallbacks::DuringStatusChange([&] { active = session_.IsActivated(); });
    session_.Activate(vela::kActiveHostSetsLights);
    EXPECT_TRUE(active);
}

TEST_F(ActivateStatusTest, WithoutACallbackEveryValueIsTakenAllTheSame) {
    OpenAndLight();
    session_.SetStatusChangeCallback(nullptr);
    for (const std::uint32_t value : {4U, 0U, 5U, 1U, 2U}) EXPECT_TRUE(session_.Activate(value));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
}

TEST_F(ActivateStatusTest, TheCallbackMayCallEveryOperationOfTheSession) {
    OpenAndLight();
    HostCallbacks::DuringStatusChange([this] {
        HostCallbacks::DuringStatusChange(nullptr);
        session_.Activate(vela::kSuspended);
        session_.Enable(true);
        session_.EnableButton(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
        session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
        session_.UpdateVelaState();
        session_.GetClickMode();
        bool connected = false;
        session_.GetDeviceConnectState(connected);
    });
    EXPECT_TRUE(session_.Activate(vela::kActiveHostSetsLights));
    EXPECT_FALSE(session_.IsActivated());
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 1", "status 5"));
}

// --- the firmware's flags ------------------------------------------------------------------------

TEST_F(ActivateStatusTest, DeactivatingEndsATemporaryDisableBeforeItsOwnReport) {
    OpenAndLight();
    ReceiveFirmwareState(kFirmwareSwipeOff);
    session_.Activate(vela::kDeactivated);
    // No report of the stopped breathing is written, as the touchpad was still disabled then.
    EXPECT_THAT(WrittenReports(session_, *device_), ElementsAre(BlankReport()));
    EXPECT_THAT(LogOf("Update"), ElementsAre("INFO Update: Can't update Vela state because "
                                             "TemporaryDisable (1) or TabletModeDisable (0)"));
}

TEST_F(ActivateStatusTest, NoOtherValueEndsATemporaryDisable) {
    OpenAndLight();
    ReceiveFirmwareState(kFirmwareSwipeOff);
    for (const std::uint32_t value : {1U, 2U, 5U, 0U}) session_.Activate(value);
    EXPECT_THAT(WrittenReports(session_, *device_), IsEmpty());
}

TEST_F(ActivateStatusTest, DeactivatingLeavesTheTouchpadsOwnDisableAlone) {
    OpenAndLight();
    ReceiveFirmwareState(kFirmwareTouchpadDisable | kFirmwareSwipeOff);
    session_.Activate(vela::kDeactivated);
    EXPECT_THAT(WrittenReports(session_, *device_), IsEmpty());
    EXPECT_THAT(LogOf("Update"), ElementsAre("INFO Update: Can't update Vela state because "
                                             "TemporaryDisable (1) or TabletModeDisable (1)",
                                             "INFO Update: Can't update Vela state because "
                                             "TemporaryDisable (0) or TabletModeDisable (1)"));
}

TEST_F(ActivateStatusTest, TheFirmwaresStateWaitsForAnActivationUnderWay) {
    OpenAndLight();
    device_->SetWriteBehaviour(WriteBehaviour::Hold);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    ASSERT_TRUE(device_->WaitForHeldWrites());
    machine_.ForgetCalls();
    // The activation waits for the write in flight, the firmware's state for the activation.
    std::thread activation([this] { session_.Activate(vela::kActiveHostSetsLights); });
    EXPECT_TRUE(machine_.WaitForCalls("HidP_SetUsages", 1));
    device_->SendInput(InputReport({}, kFirmwareSwipeOff));
    EXPECT_TRUE(log_.WaitForLine("Vela FW state: "));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());

    device_->SetWriteBehaviour(WriteBehaviour::Pend);
    device_->CompleteHeldWrites();
    activation.join();
    EXPECT_TRUE(HostCallbacks::WaitForCalls(2));
}

// The first of the two reports of a deactivation finds the lights on still, and the log shows both
// before the line of the deactivation.
TEST_F(ActivateStatusTest, ADeactivationIsReportedBeforeTheButtonsAreHiddenAndBeforeItsEnd) {
    OpenAndLight();
    std::uint8_t level = 7;
    HostCallbacks::DuringStatusChange([&] { session_.SetBrightness(level++); });
    EXPECT_TRUE(session_.Activate(vela::kDeactivated));
    EXPECT_THAT(WrittenReports(session_, *device_),
                ElementsAre(AllLit(), AllLitAt(7), BlankReport(), BlankReport()));
    std::vector<std::string> lines = log_.Texts();
    lines.erase(lines.begin(), std::find(lines.begin(), lines.end(),
                                         "INFO SetButtonBreathing: SetButtonBreathing for "
                                         "BUTTON_ID 2 (0)"));
    ASSERT_THAT(lines, testing::SizeIs(testing::Ge(4U)));
    lines.resize(4);
    EXPECT_THAT(lines, ElementsAre(testing::StartsWith("INFO SetButtonBreathing: "),
                                   "INFO SetBrightness: SetBrightness (7)",
                                   "INFO SetBrightness: SetBrightness (8)",
                                   "INFO Activate: Activate HID (4)"));
}

// The query logs whether the touchpad's name can be read.
TEST_F(ActivateStatusTest, ASuspensionQueriesTheNameAndUpdatesTheLights) {
    Plug();
    machine_.FailAlways("HidD_GetProductString", simulator::Fault::Error(31));
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    machine_.ForgetCalls();
    EXPECT_TRUE(session_.Activate(vela::kSuspended));
    std::size_t queries = 0;
    for (const simulator::Call& call : machine_.Calls()) {
        const bool byHost = call.thread == std::this_thread::get_id();
        if (byHost && call.function == "HidD_GetProductString") ++queries;
    }
    EXPECT_EQ(queries, 2U);
}

}  // namespace
