// Handling input reports: the usages that count, their order, and failures.
#include "testing/kit/native/InputTest.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

std::string HandleLine(const std::string& name) {
    return "INFO HandleInputReport: Handle HID output report for " + name;
}

const std::string kFirmwareClear =
    "INFO HandleInputReport: Vela FW state: TouchpadDisable(0), TouchpadEnable(0), SwipeOff(0)";

class InputHandlerTest : public InputTest {};

// --- several usages in one report ----------------------------------------------------------------

TEST_F(InputHandlerTest, SeveralUsagesAreHandledInAscendingOrder) {
    OpenAndLight();
    Receive(InputReport({kDisabled, kCameraButton}));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1", "status 3"));
    EXPECT_THAT(Written(),
                ElementsAre(LightReport(
                    "camera on 3, microphone off 3, chat 3, share screen 3; all active")));
    EXPECT_THAT(LogOf("HandleInputReport"),
                ElementsAre(HandleLine("camera button"), HandleLine("disabled")));
}

TEST_F(InputHandlerTest, AllUsagesInOneReportAreAllHandled) {
    OpenAndLight();
    Receive(InputReport({kSync, kCameraButton, kShareScreenButton, kChatButton, kMicrophoneButton,
                         kGesture, kEnabled, kDisabled}));
    // Enabled is handled after the gesture, whose disable still holds then.
    EXPECT_THAT(HostCallbacks::Calls(),
                ElementsAre("status 0", "press 0 1", "press 3 1", "press 2 1", "press 1 1",
                            "status 2", "status 2", "status 3"));
    EXPECT_THAT(LogOf("HandleInputReport"),
                ElementsAre(HandleLine("SYNC"), HandleLine("camera button"),
                            HandleLine("share screen button"), HandleLine("chat button"),
                            HandleLine("mic button"), HandleLine("GESTURE"), HandleLine("enabled"),
                            HandleLine("disabled")));
}

TEST_F(InputHandlerTest, ADisabledButtonDoesNotEndTheReport) {
    OpenAndLight();
    session_.EnableButton(vela::BUTTON_ID_CAMERA, false);
    Receive(InputReport({kCameraButton, kChatButton}));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 2 1"));
    EXPECT_THAT(
        LogOf("HandleInputReport"),
        ElementsAre(HandleLine("camera button"), "INFO HandleInputReport: CAMERA is disabled",
                    HandleLine("chat button")));
}

TEST_F(InputHandlerTest, TheListHasRoomForEveryReportsUsages) {
    OpenAndLight(BothLayouts());
    Receive(InputReport({kCameraButton, kShareScreenButton}));
    Receive(InputReport({kChatButton}, 0, 0x10));
    EXPECT_THAT(machine_.CallTexts({"HidP_GetUsages"}),
                ElementsAre("HidP_GetUsages(input, 0xff80, 0, 16)",
                            "HidP_GetUsages(input, 0xff80, 0, 16)"));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1", "press 3 1", "press 2 1"));
}

TEST_F(InputHandlerTest, UsagesOfOneReportAreForgottenWithTheNext) {
    OpenAndLight();
    Receive(InputReport({kCameraButton, kShareScreenButton, kChatButton, kMicrophoneButton}));
    HostCallbacks::Reset();
    Receive(InputReport({kChatButton}));
    Receive(InputReport({}));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 2 1", "status 0"));
}

TEST_F(InputHandlerTest, AnEmptyReportOfTheSecondLayoutIsNothing) {
    OpenAndLight(BothLayouts());
    Receive(InputReport({}, 0xFF, 0x10));
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(LogOf("HandleInputReport"), IsEmpty());
    EXPECT_THAT(LogOf("Update"), IsEmpty());
}

// --- failures ------------------------------------------------------------------------------------

class FailingUsages : public InputHandlerTest, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(FailingUsages, DropTheReportWithAWarning) {
    OpenAndLight();
    ReceiveFirmwareState(0x20);
    machine_.ForgetCalls();
    machine_.FailNext("HidP_GetUsages", Fault::Result(static_cast<std::int32_t>(GetParam()), 87));
    Receive(InputReport({kSync, kCameraButton}, 0x80));
    EXPECT_EQ(machine_.CountCalls("HidP_GetUsageValue"), 0U);
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_THAT(Written(), IsEmpty());
    TryUpdate();
    EXPECT_THAT(LogOf("Update"), ElementsAre(CannotUpdate(true, false)));
    const std::vector<std::string> lines = LogOf("HandleInputReport");
    ASSERT_THAT(lines, testing::SizeIs(2));
    EXPECT_EQ(lines.back(),
              "WARNING HandleInputReport: HidP_GetUsages HidP_Input failed, GetLastError(87).");
}

INSTANTIATE_TEST_SUITE_P(Statuses, FailingUsages,
                         testing::Values(0xC0110004U, 0xC0110007U, 0xC011000AU, 0x80110001U));

TEST_F(InputHandlerTest, OtherSuccessesAreNoFailure) {
    OpenAndLight();
    // The fault leaves the list empty.
    machine_.FailNext("HidP_GetUsages", Fault::Status(0x00110001));
    Receive(InputReport({kCameraButton}, 0));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0"));
    EXPECT_THAT(LogOf("HandleInputReport"), ElementsAre(kFirmwareClear));
}

TEST_F(InputHandlerTest, TheNextReportIsHandledAfterAFailure) {
    OpenAndLight();
    machine_.FailNext("HidP_GetUsages", Fault::Status(static_cast<std::int32_t>(0xC0110004)));
    Receive(InputReport({kCameraButton}));
    Receive(InputReport({kShareScreenButton}));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 3 1"));
}

TEST_F(InputHandlerTest, MoreUsagesThanTheListHoldsAreAFailure) {
    machine_.FailNext("HidP_MaxUsageListLength", Fault::Result(1));
    OpenAndLight();
    Receive(InputReport({kCameraButton, kShareScreenButton}));
    Receive(InputReport({kShareScreenButton}));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 3 1"));
    EXPECT_THAT(LogOf("HandleInputReport"),
                ElementsAre(testing::StartsWith("WARNING HandleInputReport: HidP_GetUsages "
                                                "HidP_Input failed, GetLastError("),
                            HandleLine("share screen button")));
}

}  // namespace
