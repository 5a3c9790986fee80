// Feature switch, activation, brightness, click mode, state request and the detachable query.
#include "testing/kit/native/ExportsTest.h"
#include "testing/kit/native/WrittenReports.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

class SettingsExportsTest : public ExportsTest {
 protected:
    std::vector<Bytes> Written() { return WrittenReports(session_, *device_); }
};

TEST_F(SettingsExportsTest, TheFeatureIsSwitchedOnAndOff) {
    Open();
    EXPECT_EQ(IsFeatureEnabled(), 0);
    EXPECT_EQ(EnableFeature(1), 1);
    EXPECT_EQ(IsFeatureEnabled(), 1);
    EXPECT_EQ(EnableFeature(0), 1);
    EXPECT_EQ(IsFeatureEnabled(), 0);
    EXPECT_THAT(LogOf("Enable"),
                ElementsAre("INFO Enable: Enable HID (1)", "INFO Enable: Enable HID (0)"));
}

TEST_F(SettingsExportsTest, IsNotActivatedBeforeAnyActivate) {
    EXPECT_EQ(IsActivated(), 0);
    Open();
    EXPECT_EQ(IsActivated(), 0);
}

TEST_F(SettingsExportsTest, IsActivatedInTheStatesZeroAndOne) {
    Open();
    for (const std::uint32_t value : {0U, 4U, 1U, 5U, 2U, 0xFFFFFF00U, 3U}) {
        EXPECT_EQ(Activate(value), 1);
        EXPECT_EQ(IsActivated(), value <= 1 ? 1 : 0) << value;
    }
    EXPECT_THAT(HostCallbacks::Calls(),
                ElementsAre("status 0", "status 4", "status 4", "status 1", "status 5", "status 2",
                            "status 4294967040", "status 3"));
}

// --- brightness ----------------------------------------------------------------------------------

TEST_F(SettingsExportsTest, BrightnessIsThreeBeforeAnySet) {
    EXPECT_EQ(GetVelaBrightness(), 3U);
    Open();
    EXPECT_EQ(GetVelaBrightness(), 3U);
}

struct Brightness {
    std::uint32_t level;
    std::uint8_t stored;
};

class BrightnessTest : public SettingsExportsTest,
                       public testing::WithParamInterface<Brightness> {};

TEST_P(BrightnessTest, IsTheLowByteInEveryLitLight) {
    OpenAndLight();
    const std::uint8_t stored = GetParam().stored;
    SetVelaBrightness(GetParam().level);
    EXPECT_EQ(GetVelaBrightness(), stored);
    EXPECT_THAT(Written(), ElementsAre(AllLitAt(stored)));
    EXPECT_THAT(LogOf("SetBrightness"),
                ElementsAre("INFO SetBrightness: SetBrightness (" + std::to_string(stored) + ")"));
}

INSTANTIATE_TEST_SUITE_P(Levels, BrightnessTest,
                         testing::Values(Brightness{0, 0}, Brightness{1, 1}, Brightness{255, 255},
                                         Brightness{256, 0}, Brightness{300, 44},
                                         Brightness{0xFFFFFFFF, 255}, Brightness{0x80000001, 1}));

TEST_F(SettingsExportsTest, UnchangedBrightnessIsNotWrittenAgain) {
    OpenAndLight();
    SetVelaBrightness(3);
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(SettingsExportsTest, BrightnessSurvivesTheSession) {
    Open();
    SetVelaBrightness(9);
    UnInit();
    EXPECT_EQ(GetVelaBrightness(), 9U);
    EXPECT_EQ(Init(), 1);
    EXPECT_EQ(GetVelaBrightness(), 9U);
}

// --- click mode ----------------------------------------------------------------------------------

TEST_F(SettingsExportsTest, ClickModeGoesToTheDeviceAndBack) {
    Open();
    device_->SetFeature({4, 0, 0, 0, 0});
    EXPECT_EQ(GetClickMode(), 0U);
    EXPECT_EQ(SetClickMode(1, 300), 1);
    EXPECT_EQ(GetClickMode(), 1U);
    EXPECT_EQ(SetClickMode(7, 5), 1);
    EXPECT_EQ(GetClickMode(), 1U);
    EXPECT_EQ(SetClickMode(0, 300), 1);
    EXPECT_EQ(GetClickMode(), 0U);
    EXPECT_THAT(
        device_->FeatureWrites(),
        ElementsAre(Bytes{4, 0, 0x2C, 0x01, 0}, Bytes{4, 0, 0x2C, 0x01, 0}, Bytes{4, 0, 0, 0, 0}));
}

TEST_F(SettingsExportsTest, AClickModeThatIsNotWrittenIsZero) {
    TouchpadLayout layout;
    layout.hasFeatureReport = false;
    Open(layout);
    EXPECT_EQ(SetClickMode(1, 300), 0);
    EXPECT_EQ(GetClickMode(), 0U);
}

// --- queries -------------------------------------------------------------------------------------

TEST_F(SettingsExportsTest, TheStateIsRequestedFromTheFirmware) {
    Open();
    EXPECT_EQ(UpdateVelaState(), 1);
    ASSERT_TRUE(device_->WaitForOutputs(1));
    EXPECT_THAT(device_->Outputs(), ElementsAre(RequestReport()));
    EXPECT_THAT(LogOf("UpdateVelaState"), ElementsAre("INFO UpdateVelaState: UpdateVelaState."));
}

TEST_F(SettingsExportsTest, NoStateIsRequestedFromTheSecondReportLayout) {
    TouchpadLayout layout;
    layout.requestReportId = virtual_touchpad::kSecondLayoutReportId;
    Open(layout);
    EXPECT_EQ(UpdateVelaState(), 0);
    EXPECT_EQ(EnableFeature(1), 1);
    ASSERT_TRUE(device_->WaitForOutputs(1));
    EXPECT_THAT(device_->Outputs(), ElementsAre(BlankReport()));
}

TEST_F(SettingsExportsTest, AFixedTouchpadIsNotDetachable) {
    Open();
    EXPECT_EQ(IsDetachable(), 0);
}

TEST_F(SettingsExportsTest, ADetachableTouchpadIs) {
    Open(DetachableLayout());
    EXPECT_EQ(IsDetachable(), 1);
}

}  // namespace
