#include "testing/unit/haptic/HapticTest.h"

namespace kit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using IntensityTest = HapticTest;

TEST_F(IntensityTest, IsReadFromItsPlaceInTheReport) {
    Open();
    EXPECT_EQ(session_.GetIntensityLevel(), 42U);
    EXPECT_THAT(machine_.CallTexts({"HidD_SetFeature"}), IsEmpty());
    session_.Uninitialize();
    EXPECT_THAT(
        log_.TextsOf("GetIntensityLevel"),
        ElementsAre("INFO GetIntensityLevel: CHapticTouchpadHID GetIntensityLevel(42) succeeded."));
}

TEST_F(IntensityTest, IsSetAndTheOtherFieldsKeepTheDevicesValues) {
    Open();
    EXPECT_TRUE(session_.SetIntensityLevel(77));
    HapticFields expected = kFields;
    expected.intensity = 77;
    EXPECT_EQ(device_->Feature(virtual_touchpad::kHapticsReportId), HapticsReport(expected));
    EXPECT_EQ(session_.GetIntensityLevel(), 77U);
    session_.Uninitialize();
    EXPECT_THAT(
        log_.TextsOf("SetIntensityLevel"),
        ElementsAre("INFO SetIntensityLevel: CHapticTouchpadHID SetIntensityLevel(77) succeeded."));
}

TEST_F(IntensityTest, OfZeroIsSentAsZero) {
    Open();
    EXPECT_TRUE(session_.SetIntensityLevel(0));
    EXPECT_EQ(session_.GetIntensityLevel(), 0U);
}

// Set and get call the platform in this order and pass the level on unchanged.
TEST_F(IntensityTest, CallsReadThenChangeThenWrite) {
    Open();
    EXPECT_TRUE(session_.SetIntensityLevel(1000));
    const auto calls = machine_.CallTexts();
    ASSERT_EQ(calls.size(), 3U);
    EXPECT_THAT(calls[0], testing::StartsWith("HidD_GetFeature("));
    EXPECT_EQ(calls[1], "HidP_SetUsageValue(feature, 0xe, 0, 0x23, 0x3e8)");
    EXPECT_THAT(calls[2], testing::StartsWith("HidD_SetFeature("));
    // The platform truncates the level to the field's seven bits; the neighbours stay.
    HapticFields expected = kFields;
    expected.intensity = 1000 % 128;
    EXPECT_EQ(device_->Feature(virtual_touchpad::kHapticsReportId), HapticsReport(expected));
}

TEST_F(IntensityTest, OfAClosedSessionIsZeroAndLogsNothing) {
    EXPECT_FALSE(session_.SetIntensityLevel(5));
    EXPECT_EQ(session_.GetIntensityLevel(), 0U);
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

class IntensityFailureTest : public HapticTest, public testing::WithParamInterface<const char*> {
 protected:
    std::string ExpectedLine(const std::string& function) const {
        return "ERROR " + function + ": " + GetParam() + " failed, GetLastError(31).";
    }
};
class SetIntensityFailureTest : public IntensityFailureTest {};
class GetIntensityFailureTest : public IntensityFailureTest {};

TEST_P(SetIntensityFailureTest, IsLoggedWithTheLastErrorAndLeavesTheDeviceAlone) {
    Open();
    machine_.FailNext(GetParam(), Fault::Error(31));
    EXPECT_FALSE(session_.SetIntensityLevel(77));
    EXPECT_EQ(device_->Feature(virtual_touchpad::kHapticsReportId), HapticsReport(kFields));
    // The session stays open.
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_THAT(log_.TextsOf("SetIntensityLevel"), ElementsAre(ExpectedLine("SetIntensityLevel")));
}

TEST_P(GetIntensityFailureTest, IsLoggedWithTheLastErrorAndReturnsZero) {
    Open();
    machine_.FailNext(GetParam(), Fault::Error(31));
    EXPECT_EQ(session_.GetIntensityLevel(), 0U);
    EXPECT_EQ(session_.GetIntensityLevel(), 42U);
    session_.Uninitialize();
    EXPECT_THAT(
        log_.TextsOf("GetIntensityLevel"),
        ElementsAre(ExpectedLine("GetIntensityLevel"),
                    "INFO GetIntensityLevel: CHapticTouchpadHID GetIntensityLevel(42) succeeded."));
}

std::string CallName(const testing::TestParamInfo<const char*>& call) { return call.param; }

INSTANTIATE_TEST_SUITE_P(Calls, SetIntensityFailureTest,
                         testing::Values("HidD_GetFeature", "HidP_SetUsageValue",
                                         "HidD_SetFeature"),
                         CallName);
INSTANTIATE_TEST_SUITE_P(Calls, GetIntensityFailureTest,
                         testing::Values("HidD_GetFeature", "HidP_GetUsageValue"), CallName);

// A record that changed after Initialize: Initialize refuses one without the intensity.
TEST_F(IntensityTest, IsUnknownInARecordWithoutIt) {
    Plug();
    const auto information = vela::ScanHIDInformation(&session_);
    ASSERT_EQ(session_.Initialize(information), vela::kHidOpen);
    information->valueCapsMap.clear();
    EXPECT_FALSE(session_.SetIntensityLevel(5));
    EXPECT_EQ(session_.GetIntensityLevel(), 0U);
    session_.Uninitialize();
    EXPECT_THAT(log_.TextsOf("SetIntensityLevel"),
                ElementsAre("WARNING SetIntensityLevel: GetValueCaps for HidP_Feature, "
                            "USAGE_INTENSITY failed"));
    EXPECT_THAT(log_.TextsOf("GetIntensityLevel"),
                ElementsAre("WARNING GetIntensityLevel: GetValueCaps for HidP_Feature, "
                            "USAGE_INTENSITY failed"));
}

}  // namespace
}  // namespace kit
