// The numbers in the touchpad's reports and the host's calls.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

#include "touchpad/ButtonState.h"
#include "touchpad/LedControlTable.h"
#include "touchpad/TandrelHID.h"
#include "touchpad/TouchpadUsages.h"

namespace {

using testing::ElementsAreArray;
using vela::LedControl;

struct Constant {
    const char* name;
    std::uint32_t value;
    std::uint32_t expected;
};

void PrintTo(const Constant& constant, std::ostream* stream) { *stream << constant.name; }

class UsageConstants : public testing::TestWithParam<Constant> {};

TEST_P(UsageConstants, HaveTheTouchpadsValues) { EXPECT_EQ(GetParam().value, GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(Collection, UsageConstants,
                         testing::Values(Constant{"usage page", vela::kTouchpadUsagePage, 0xFF80},
                                         Constant{"usage", vela::kMeetingButtonsUsage, 0x80},
                                         Constant{"vendor id", vela::kTouchpadVendorId, 0x0488},
                                         Constant{"second layout", vela::kSecondLayoutReportId,
                                                  0x10},
                                         Constant{"link collection", vela::kNoLinkCollection, 0}));

INSTANTIATE_TEST_SUITE_P(
    Outputs, UsageConstants,
    testing::Values(Constant{"camera active", vela::USAGE_CAMERA_ACTIVE, 0x01},
                    Constant{"share screen active", vela::USAGE_SHARE_SCREEN_ACTIVE, 0x02},
                    Constant{"chat active", vela::USAGE_CHAT_ACTIVE, 0x03},
                    Constant{"microphone active", vela::USAGE_AUDIO_ACTIVE, 0x04},
                    Constant{"camera on", vela::USAGE_CAMERA_LED_ON, 0x20},
                    Constant{"camera off", vela::USAGE_CAMERA_LED_OFF, 0x21},
                    Constant{"share screen", vela::USAGE_SHARE_SCREEN_LED, 0x22},
                    Constant{"chat", vela::USAGE_CHAT_LED, 0x24},
                    Constant{"microphone on", vela::USAGE_AUDIO_LED_ON, 0x26},
                    Constant{"microphone off", vela::USAGE_AUDIO_LED_OFF, 0x27},
                    Constant{"chat breathing", vela::USAGE_CHAT_BREATHING, 0xA2},
                    Constant{"request", vela::USAGE_REQUEST, 0x30}));

INSTANTIATE_TEST_SUITE_P(Inputs, UsageConstants,
                         testing::Values(Constant{"sync", vela::USAGE_SYNC, 0x40},
                                         Constant{"camera", vela::USAGE_CAMERA_BUTTON, 0x41},
                                         Constant{"share screen", vela::USAGE_SHARE_SCREEN_BUTTON,
                                                  0x42},
                                         Constant{"chat", vela::USAGE_CHAT_BUTTON, 0x43},
                                         Constant{"microphone", vela::USAGE_MIC_BUTTON, 0x44},
                                         Constant{"gesture", vela::USAGE_GESTURE, 0x45},
                                         Constant{"enabled", vela::USAGE_ENABLED, 0x46},
                                         Constant{"disabled", vela::USAGE_DISABLED, 0x47},
                                         Constant{"firmware state", vela::USAGE_FW_STATE, 0x48}));

INSTANTIATE_TEST_SUITE_P(Features, UsageConstants,
                         testing::Values(Constant{"click mode", vela::USAGE_DBLTAP_DURATION_MAX,
                                                  0x62}));

INSTANTIATE_TEST_SUITE_P(Buttons, UsageConstants,
                         testing::Values(Constant{"camera", vela::BUTTON_ID_CAMERA, 0},
                                         Constant{"microphone", vela::BUTTON_ID_AUDIO, 1},
                                         Constant{"chat", vela::BUTTON_ID_CHAT, 2},
                                         Constant{"share screen", vela::BUTTON_ID_SHARE_SCREEN,
                                                  3}));

INSTANTIATE_TEST_SUITE_P(Statuses, UsageConstants,
                         testing::Values(Constant{"normal", vela::kStatusNormal, 0},
                                         Constant{"temporarily disabled",
                                                  vela::kStatusTemporarilyDisabled, 2},
                                         Constant{"disabled", vela::kStatusDisabled, 3},
                                         Constant{"deactivated", vela::kStatusDeactivated, 4}));

INSTANTIATE_TEST_SUITE_P(Breathing, UsageConstants,
                         testing::Values(Constant{"requested", vela::kBreathingRequested, 0},
                                         Constant{"running", vela::kBreathingRunning, 1},
                                         Constant{"stopped", vela::kBreathingStopped, 2}));

// --- tables and records --------------------------------------------------------------------------

struct Row {
    std::uint32_t buttonId;
    USAGE firstLight;
    USAGE secondLight;
    USAGE active;
};

bool operator==(const LedControl& control, const Row& row) {
    return control.buttonId == row.buttonId && control.firstLight == row.firstLight &&
           control.secondLight == row.secondLight && control.active == row.active;
}

TEST(LedControlTable, HasOneRowForEachButtonInTheOrderOfReports) {
    EXPECT_THAT(vela::LedControlTable,
                ElementsAreArray({Row{0, 0x21, 0x20, 0x01}, Row{1, 0x27, 0x26, 0x04},
                                  Row{2, 0x24, 0x24, 0x03}, Row{3, 0x22, 0x22, 0x02}}));
}

TEST(LedControlTable, GivesTwoLightsToTheCameraAndTheMicrophoneOnly) {
    std::vector<bool> twoLights;
    for (const LedControl& row : vela::LedControlTable) twoLights.push_back(row.HasTwoLights());
    EXPECT_THAT(twoLights, testing::ElementsAre(true, true, false, false));
}

TEST(SeededButtons, ComeInTheOrderMicrophoneCameraChatShareScreen) {
    EXPECT_THAT(vela::kSeededButtonIds, testing::ElementsAre(1U, 0U, 2U, 3U));
}

TEST(ButtonState, IsOffDarkAndNotBreathingAtFirst) {
    const vela::ButtonState button;
    EXPECT_FALSE(button.present);
    EXPECT_FALSE(button.enabled);
    EXPECT_FALSE(button.breathingEnabled);
    EXPECT_FALSE(button.lightOn);
    EXPECT_FALSE(button.visible);
    EXPECT_EQ(button.breathingState, 2U);
    EXPECT_EQ(button.breathingLevel, 8);
}

TEST(ButtonState, HasFixedWidths) {
    EXPECT_EQ(sizeof(vela::ButtonState::breathingState), 4U);
    EXPECT_EQ(sizeof(vela::ButtonState::breathingLevel), 1U);
    EXPECT_EQ(sizeof(vela::BUTTON_ID), 4U);
    EXPECT_FALSE(std::is_signed_v<std::underlying_type_t<vela::BUTTON_ID>>);
}

}  // namespace
