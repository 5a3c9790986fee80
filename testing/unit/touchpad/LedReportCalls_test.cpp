// The platform calls that compose a light report, in order.
#include "testing/kit/native/CompositionTest.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class LedReportCallsTest : public CompositionTest {};

TEST_F(LedReportCallsTest, OfShownButtonsSetTheSecondLightFirstAndAllActiveUsagesAtOnce) {
    OpenAndLight();
    Compose();
    EXPECT_THAT(calls_,
                ElementsAre(SetValueCall(0x20, 0), SetValueCall(0x21, 3), SetValueCall(0x26, 0),
                            SetValueCall(0x27, 3), SetValueCall(0x24, 3), SetValueCall(0x22, 3),
                            SetCall({0x1, 0x4, 0x3, 0x2})));
}

TEST_F(LedReportCallsTest, OfLitButtonsExchangeTheTwoLights) {
    OpenAndLight();
    for (std::uint32_t button = 0; button < 4; ++button) session_.SetButtonLight(button, true);
    Compose();
    EXPECT_THAT(calls_,
                ElementsAre(SetValueCall(0x20, 3), SetValueCall(0x21, 0), SetValueCall(0x26, 3),
                            SetValueCall(0x27, 0), SetValueCall(0x24, 3), SetValueCall(0x22, 3),
                            SetCall({0x1, 0x4, 0x3, 0x2})));
}

TEST_F(LedReportCallsTest, WriteTheBreathingRightBehindTheChatLight) {
    OpenAndLight();
    session_.EnableButtonBreathing(vela::BUTTON_ID_CHAT, true);
    Compose();
    EXPECT_THAT(calls_,
                ElementsAre(SetValueCall(0x20, 0), SetValueCall(0x21, 3), SetValueCall(0x26, 0),
                            SetValueCall(0x27, 3), SetValueCall(0x24, 3), SetValueCall(0xa2, 0),
                            SetValueCall(0x22, 3), SetCall({0x1, 0x4, 0x3, 0x2})));
}

TEST_F(LedReportCallsTest, OfHiddenButtonsDarkenBothLightsAndUnsetEachActiveUsageByItself) {
    OpenAndLight();
    HideAllButtons();
    Compose();
    EXPECT_THAT(calls_,
                ElementsAre(SetValueCall(0x20, 0), SetValueCall(0x21, 0), SetValueCall(0x26, 0),
                            SetValueCall(0x27, 0), SetValueCall(0x24, 0), SetValueCall(0x24, 0),
                            SetValueCall(0xa2, 0), SetValueCall(0x22, 0), SetValueCall(0x22, 0),
                            UnsetCall(0x1), UnsetCall(0x4), UnsetCall(0x3), UnsetCall(0x2)));
}

TEST_F(LedReportCallsTest, SetBeforeTheyUnset) {
    OpenAndLight();
    session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, false);
    session_.EnableButton(vela::BUTTON_ID_CHAT, false);
    Compose();
    EXPECT_THAT(calls_,
                ElementsAre(SetValueCall(0x20, 0), SetValueCall(0x21, 0), SetValueCall(0x26, 0),
                            SetValueCall(0x27, 3), SetValueCall(0x24, 0), SetValueCall(0x24, 0),
                            SetValueCall(0xa2, 0), SetValueCall(0x22, 3), SetCall({0x4, 0x2}),
                            UnsetCall(0x1), UnsetCall(0x3)));
}

const std::vector<std::string> kBlankCalls = {
    SetValueCall(0x20, 0), SetValueCall(0x21, 0), SetValueCall(0x26, 0), SetValueCall(0x27, 0),
    SetValueCall(0x24, 0), SetValueCall(0x24, 0), SetValueCall(0x22, 0), SetValueCall(0x22, 0),
    UnsetCall(0x1),        UnsetCall(0x2),        UnsetCall(0x3),        UnsetCall(0x4)};

TEST_F(LedReportCallsTest, OfADisabledFeatureLeaveTheBreathingAlone) {
    OpenAndLight();
    session_.Enable(false);
    Compose();
    EXPECT_THAT(calls_, ElementsAreArray(kBlankCalls));
}

TEST_F(LedReportCallsTest, OutsideTheActiveStatesLeaveTheBreathingAlone) {
    OpenAndLight({}, 2);
    Compose();
    EXPECT_THAT(calls_, ElementsAreArray(kBlankCalls));
}

// --- failing set and unset of the active usages --------------------------------------------------

constexpr std::int32_t kNotFound = static_cast<std::int32_t>(0xC0110004);
constexpr std::int32_t kNotPressed = static_cast<std::int32_t>(0xC011000F);
constexpr std::int32_t kWarning = static_cast<std::int32_t>(0x80110001);
constexpr std::int32_t kOtherSuccess = 0x00110001;

TEST_F(LedReportCallsTest, UnsetAfterAFailedSet) {
    OpenAndLight();
    session_.SetButtonVisible(vela::BUTTON_ID_SHARE_SCREEN, false);
    Compose([this] { machine_.FailNext("HidP_SetUsages", Fault::Status(kNotFound)); });
    EXPECT_THAT(calls_, testing::IsSupersetOf({SetCall({0x1, 0x4, 0x3}), UnsetCall(0x2)}));
    EXPECT_THAT(ComposeLog(),
                ElementsAre("ERROR UpdateLedCtrl: HidP_SetUsages failed, status : -1072627708"));
}

TEST_F(LedReportCallsTest, GoOnAfterAFailedUnset) {
    OpenAndLight();
    HideAllButtons();
    Compose([this] { machine_.FailAlways("HidP_UnsetUsages", Fault::Status(kNotFound)); });
    EXPECT_THAT(std::vector<std::string>(calls_.end() - 4, calls_.end()),
                ElementsAre(UnsetCall(0x1), UnsetCall(0x4), UnsetCall(0x3), UnsetCall(0x2)));
    const std::string line = "ERROR UpdateLedCtrl: HidP_UnsetUsages failed, status : -1072627708";
    EXPECT_THAT(ComposeLog(), ElementsAre(line, line, line, line));
}

TEST_F(LedReportCallsTest, GoOnAfterAFailedUnsetOfABlankReport) {
    OpenAndLight({}, 2);
    Compose([this] { machine_.FailNext("HidP_UnsetUsages", Fault::Status(kWarning), 1); });
    EXPECT_THAT(calls_, ElementsAreArray(kBlankCalls));
    EXPECT_THAT(ComposeLog(),
                ElementsAre("ERROR UpdateLedCtrl: HidP_UnsetUsages failed, status : -2146369535"));
}

class UnsetStatus : public LedReportCallsTest,
                    public testing::WithParamInterface<std::tuple<std::int32_t, std::uint32_t>> {};

TEST_P(UnsetStatus, IsNoFailureWhenThereWasNothingToUnset) {
    const auto [status, activation] = GetParam();
    OpenAndLight({}, activation);
    HideAllButtons();
    Compose([this, status = status] {
        machine_.FailAlways("HidP_UnsetUsages", Fault::Status(status));
    });
    EXPECT_THAT(ComposeLog(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Statuses, UnsetStatus,
                         testing::Combine(testing::Values(kNotPressed, kOtherSuccess),
                                          testing::Values(0U, 2U)));

TEST_F(LedReportCallsTest, TakeAnUnpressedUsageForAFailureWhenSetting) {
    OpenAndLight();
    Compose([this] { machine_.FailNext("HidP_SetUsages", Fault::Status(kNotPressed)); });
    EXPECT_THAT(ComposeLog(),
                ElementsAre("ERROR UpdateLedCtrl: HidP_SetUsages failed, status : -1072627697"));
}

TEST_F(LedReportCallsTest, TakeOtherSuccessesOfASetForWhatTheyAre) {
    OpenAndLight();
    Compose([this] {
        machine_.FailNext("HidP_SetUsages", Fault::Status(kOtherSuccess));
        machine_.FailAlways("HidP_SetUsageValue", Fault::Status(kOtherSuccess));
    });
    EXPECT_THAT(calls_, testing::SizeIs(7));
    EXPECT_THAT(ComposeLog(), IsEmpty());
}

}  // namespace
