// The click mode in the touchpad's feature report, and the request for its state.
#include "testing/acceptance/ExportCalls.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"

namespace acceptance {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using virtual_touchpad::kClickModeReportId;
using virtual_touchpad::Report;

class SettingsTest : public TouchpadAcceptanceTest {
 protected:
    // Opens a session on a touchpad with this click mode between its neighbours.
    void OpenWithClickMode(std::uint16_t value) {
        Plug();
        Touchpad().Device().SetFeature(Setting(value));
        ASSERT_NO_FATAL_FAILURE(Open());
    }
    static Report Setting(unsigned value) {
        return {kClickModeReportId, 0x11, static_cast<std::uint8_t>(value & 0xFF),
                static_cast<std::uint8_t>(value >> 8), 0x44};
    }
    Report Stored() { return Touchpad().Device().Feature(kClickModeReportId).value_or(Report{}); }

    std::vector<std::string> LogAfterTheOpening() {
        agent_.UnInitLogger();
        std::vector<std::string> lines = log_.Lines();
        lines.erase(lines.begin(), lines.begin() + 3);
        lines.pop_back();
        return lines;
    }
};

struct ClickModeCall {
    std::uint16_t before;
    std::uint32_t mode;
    std::uint16_t value;
    std::uint16_t after;
    std::string line;
};

TEST_F(SettingsTest, AClickModeIsWrittenBetweenItsNeighbours) {
    const ClickModeCall calls[] = {
        {0, 1, 300, 300, "{INFO @ SetClickMode} SetClickMode (1, 300) completed."},
        {300, 0, 500, 0, "{INFO @ SetClickMode} SetClickMode (0, 500) completed."},
        {700, 1, 0, 0, "{INFO @ SetClickMode} SetClickMode (1, 0) completed."},
        {300, 1, 2000, 2000, "{INFO @ SetClickMode} SetClickMode (1, 2000) completed."},
        {700, 2, 5, 700, "{INFO @ SetClickMode} SetClickMode (2, 5) completed."},
        {700, 7, 65535, 700, "{INFO @ SetClickMode} SetClickMode (7, 65535) completed."},
    };
    ASSERT_NO_FATAL_FAILURE(OpenWithClickMode(0));
    std::vector<std::string> lines;
    for (const ClickModeCall& call : calls) {
        Touchpad().Device().SetFeature(Setting(call.before));
        const VirtualHidState before = Touchpad().Device().State();
        EXPECT_EQ(agent_.SetClickMode(call.mode, call.value), 1) << call.line;
        EXPECT_EQ(Stored(), Setting(call.after)) << call.line;
        const VirtualHidState after = Touchpad().Device().State();
        EXPECT_EQ(after.featureGetCount, before.featureGetCount + 1);
        EXPECT_EQ(after.featureSetCount, before.featureSetCount + 1);
        EXPECT_EQ(agent_.GetClickMode(), call.after == 0 ? 0U : 1U);
        lines.push_back(call.line);
        lines.push_back("{INFO @ GetClickMode} GetClickMode (" + std::to_string(call.after) +
                        ") succeed.");
    }
    EXPECT_EQ(Touchpad().Device().LastSequence(), 0U);
    EXPECT_EQ(LogAfterTheOpening(), lines);
}

TEST_F(SettingsTest, TheClickModeIsOnWheneverItsDurationIsNotZero) {
    ASSERT_NO_FATAL_FAILURE(OpenWithClickMode(0));
    for (const unsigned duration : {0U, 1U, 256U, 2000U, 0U}) {
        Touchpad().Device().SetFeature(Setting(duration));
        EXPECT_EQ(agent_.GetClickMode(), duration == 0 ? 0U : 1U) << duration;
    }
    EXPECT_EQ(Touchpad().Device().State().featureSetCount, 0U);
}

// 0xC0000185 is STATUS_IO_DEVICE_ERROR, 1117 ERROR_IO_DEVICE.
TEST_F(SettingsTest, AClickModeThatCannotBeReadIsNeitherOnNorWritten) {
    constexpr auto kDeviceError = static_cast<std::int32_t>(0xC0000185);
    ASSERT_NO_FATAL_FAILURE(OpenWithClickMode(300));
    Touchpad().Device().FailNextFeature(kDeviceError);
    EXPECT_EQ(agent_.GetClickMode(), 0U);
    Touchpad().Device().FailNextFeature(kDeviceError);
    EXPECT_EQ(agent_.SetClickMode(1, 500), 0);
    EXPECT_EQ(Stored(), Setting(300));
    EXPECT_EQ(agent_.SetClickMode(1, 500), 1);
    EXPECT_EQ(Stored(), Setting(500));
    EXPECT_THAT(LogAfterTheOpening(),
                ElementsAre("{ERROR @ GetClickMode} HidD_GetFeature failed, the last error (1117)",
                            "{ERROR @ SetClickMode} HidD_GetFeature failed, the last error( 1117)",
                            "{INFO @ SetClickMode} SetClickMode (1, 500) completed."));
}

TEST_F(SettingsTest, TheStateRequestIsAReportOfItsOwnAndTheStateComesAsStatus) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
    EXPECT_EQ(agent_.UpdateVelaState(), 1);
    const auto request =
        Touchpad().Device().WaitForOutput(virtual_touchpad::IsStateRequest, kPatience);
    ASSERT_TRUE(request);
    Report expected(virtual_touchpad::kRequestByteOffset + 1);
    expected[0] = virtual_touchpad::kRequestReportId;
    expected[virtual_touchpad::kRequestByteOffset] = 1;
    EXPECT_EQ(request->bytes, expected);
    Touchpad().SendFirmwareState(0x20);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 0", "status 2"));
}

TEST_F(SettingsTest, WithoutASessionEveryExportReturnsAndReachesNoTouchpad) {
    const char* const results[] = {
        "Activate 0",
        "EnableChatBreathing 0",
        "EnableFeature 0",
        "EnableSingleButton 0",
        "GetClickMode 0",
        "GetHapticTPIntensityLevel 0",
        "GetVelaBrightness 3",
        "Init 2",
        "InitHapticTP 0",
        "InitLogger -",
        "IsActivated 0",
        "IsChatBreathingEnabled 0",
        "IsDetachable 1",
        "IsFeatureEnabled 0",
        "IsHapticTPPresent 0",
        "IsSingleButtonEnabled 0",
        "IsSupportBiDirectionSwipe 0",
        "IsVelaPresent 0",
        "SetButtonBreathing 0",
        "SetButtonLight 0",
        "SetButtonVisible 0",
        "SetClickMode 0",
        "SetHapticTPIntensityLevel 0",
        "SetVelaBrightness -",
        "SetVelaButtonPressCallback -",
        "SetVelaStatusChangeCallback -",
        "UnInitHapticTP 0",
        "UnInitLogger -",
        "UpdateVelaState 0",
    };
    TouchpadLayout unwanted;
    unwanted.vendorId = 0x0489;
    Plug(unwanted);
    EXPECT_THAT(CallEveryExportButUnInit(agent_), ElementsAreArray(results));
    EXPECT_EQ(agent_.UnInit(), 0);
    EXPECT_THAT(CallEveryExportButUnInit(agent_), ElementsAreArray(results));
    EXPECT_EQ(agent_.GetVelaBrightness(), 3U);
    const VirtualHidState state = Touchpad().Device().State();
    EXPECT_EQ(state.outputCount + state.featureGetCount + state.featureSetCount, 0U);
}

}  // namespace
}  // namespace acceptance
