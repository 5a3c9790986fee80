// Reports without a pressed usage carry the firmware's state.
#include <tuple>

#include "testing/kit/native/InputTest.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint8_t kSecondLayout = 0x10;

std::string StateLine(bool touchpadDisable, bool touchpadEnable, bool swipeOff) {
    return "INFO HandleInputReport: Vela FW state: TouchpadDisable(" +
           std::to_string(touchpadDisable) + "), TouchpadEnable(" + std::to_string(touchpadEnable) +
           "), SwipeOff(" + std::to_string(swipeOff) + ")";
}

struct StateCase {
    std::uint8_t state;
    bool tabletModeDisable;
    bool touchpadEnable;
    bool temporaryDisable;
    const char* status;
};

void PrintTo(const StateCase& state, std::ostream* stream) { *stream << int{state.state}; }

class FirmwareState : public InputTest,
                      public testing::WithParamInterface<std::tuple<StateCase, std::uint32_t>> {};

TEST_P(FirmwareState, SetsBothFlagsAndIsReportedInTheActiveStates) {
    const auto [state, activation] = GetParam();
    OpenAndLight({}, activation);
    // Both flags change with the report.
    ReceiveFirmwareState(static_cast<std::uint8_t>(~state.state));
    Receive(InputReport({}, state.state));
    if (activation <= 1) {
        EXPECT_THAT(HostCallbacks::Calls(), ElementsAre(state.status));
        EXPECT_NE(HostCallbacks::LastThread(), std::this_thread::get_id());
    } else {
        EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    }
    // The state updates no lights: the firmware sends SYNC when it ends a disable.
    EXPECT_EQ(machine_.CountCalls("HidP_SetUsageValue"), 0U);
    TryUpdate();
    EXPECT_THAT(Written(), IsEmpty());
    if (state.temporaryDisable || state.tabletModeDisable) {
        EXPECT_THAT(LogOf("Update"),
                    ElementsAre(CannotUpdate(state.temporaryDisable, state.tabletModeDisable)));
    } else {
        EXPECT_THAT(LogOf("Update"), IsEmpty());
    }
    const std::vector<std::string> lines = LogOf("HandleInputReport");
    ASSERT_THAT(lines, testing::SizeIs(2));
    EXPECT_EQ(lines.back(),
              StateLine(state.tabletModeDisable, state.touchpadEnable, state.temporaryDisable));
}

INSTANTIATE_TEST_SUITE_P(
    States, FirmwareState,
    testing::Combine(testing::Values(StateCase{0x00, false, false, false, "status 0"},
                                     StateCase{0x1F, false, false, false, "status 0"},
                                     StateCase{0x20, false, false, true, "status 2"},
                                     StateCase{0x40, false, true, false, "status 0"},
                                     StateCase{0x60, false, true, true, "status 2"},
                                     StateCase{0x80, true, false, false, "status 3"},
                                     StateCase{0xA0, true, false, true, "status 3"},
                                     StateCase{0xC0, true, true, false, "status 3"},
                                     StateCase{0xE0, true, true, true, "status 3"},
                                     StateCase{0xFF, true, true, true, "status 3"}),
                     testing::Values(0U, 1U, 2U, 4U, 5U, 0x100U)));

class FirmwareStateTest : public InputTest {};

TEST_F(FirmwareStateTest, IsReadFromTheWholeCollection) {
    OpenAndLight();
    Receive(InputReport({}, 0xA0));
    EXPECT_THAT(machine_.CallTexts({"HidP_GetUsages", "HidP_GetUsageValue"}),
                ElementsAre("HidP_GetUsages(input, 0xff80, 0, 8)",
                            "HidP_GetUsageValue(input, 0xff80, 0, 0x48)"));
}

TEST_F(FirmwareStateTest, IsNotReadFromAReportWithAPressedUsage) {
    OpenAndLight();
    Receive(InputReport({kCameraButton}, 0xA0));
    EXPECT_EQ(machine_.CountCalls("HidP_GetUsageValue"), 0U);
    TryUpdate();
    EXPECT_THAT(LogOf("Update"), IsEmpty());
}

TEST_F(FirmwareStateTest, IsNotReadInTheSecondReportLayout) {
    OpenAndLight(BothLayouts());
    ReceiveFirmwareState(0x20);
    machine_.ForgetCalls();
    Receive(InputReport({}, 0x80, kSecondLayout));
    EXPECT_EQ(machine_.CountCalls("HidP_GetUsageValue"), 0U);
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    TryUpdate();
    EXPECT_THAT(LogOf("Update"), ElementsAre(CannotUpdate(true, false)));
    EXPECT_THAT(LogOf("HandleInputReport"), ElementsAre(StateLine(false, false, true)));
}

TEST_F(FirmwareStateTest, ThatCannotBeReadCountsAsAllClear) {
    OpenAndLight();
    ReceiveFirmwareState(0xE0);
    machine_.FailNext("HidP_GetUsageValue", Fault::Status(static_cast<std::int32_t>(0xC0110004)));
    Receive(InputReport({}, 0xE0));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0"));
    TryUpdate();
    EXPECT_THAT(LogOf("Update"), IsEmpty());
    EXPECT_THAT(LogOf("HandleInputReport"),
                ElementsAre(StateLine(true, true, true), StateLine(false, false, false)));
}

TEST_F(FirmwareStateTest, IsReportedEveryTimeThoughUnchanged) {
    OpenAndLight();
    Receive(InputReport({}, 0x20));
    Receive(InputReport({}, 0x20));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 2", "status 2"));
}

TEST_F(FirmwareStateTest, IsKeptWithoutACallback) {
    OpenAndLight();
    session_.SetStatusChangeCallback(nullptr);
    Receive(InputReport({}, 0xA0));
    TryUpdate();
    EXPECT_THAT(LogOf("Update"), ElementsAre(CannotUpdate(true, true)));
}

TEST_F(FirmwareStateTest, IsInForceWhenTheHostIsNotified) {
    OpenAndLight();
    HostCallbacks::DuringStatusChange([this] { TryUpdate(); });
    Receive(InputReport({}, 0x80));
    EXPECT_THAT(LogOf("Update"), ElementsAre(CannotUpdate(false, true)));
}

TEST_F(FirmwareStateTest, IsReportedWithNoLockHeld) {
    OpenAndLight();
    HostCallbacks::DuringStatusChange([this] {
        HostCallbacks::DuringStatusChange(nullptr);
        // Both calls take the lock under which the flags were stored.
        session_.Activate(vela::kDeactivated);
        session_.Activate(vela::kActiveHostSetsLights);
        session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    });
    Receive(InputReport({}, 0x20));
    EXPECT_THAT(HostCallbacks::Calls(),
                ElementsAre("status 2", "status 4", "status 4", "status 1"));
}

TEST_F(FirmwareStateTest, OfADisabledTouchpadEndsWithTheSession) {
    OpenAndLight();
    ReceiveFirmwareState(0x80);
    session_.Uninitialize();
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    machine_.ForgetCalls();
    TryUpdate();
    EXPECT_GT(machine_.CountCalls("HidP_SetUsageValue"), 0U);
}

TEST_F(FirmwareStateTest, OfATemporaryDisableOutlivesASessionThatWasNotActive) {
    OpenAndLight({}, vela::kDeactivated);
    ReceiveFirmwareState(0x20);
    session_.Uninitialize();
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    TryUpdate();
    const std::vector<std::string> lines = LogOf("Update");
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back(), CannotUpdate(true, false));
}

}  // namespace
