#include "testing/unit/haptic/HapticTest.h"

namespace kit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vela::kHidFailed;
using vela::kHidHeldByOther;
using vela::kHidOpen;

constexpr char kSucceeded[] =
    "INFO Initialize: ================= CHapticTouchpadHID initialize succeeded =================";
constexpr char kNoIntensity[] = "GetValueCaps for HidP_Feature, USAGE_INTENSITY failed";

using HapticQueryTest = HapticTest;

TEST_F(HapticQueryTest, RequestsTheTouchPadsOfAnyVendor) {
    const auto filters = session_.GetHidDeviceFilters();
    ASSERT_EQ(filters.size(), 1U);
    EXPECT_EQ(filters.front().VendorID, 0);
    EXPECT_EQ(filters.front().UsagePage, 0x000D);
    EXPECT_EQ(filters.front().Usage, 0x0005);
}

TEST_F(HapticQueryTest, RequestsTheFeatureValuesOfTheHapticsPage) {
    const auto pages = session_.GetValueCapUsagePages();
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(pages.front().ReportType, 2U);
    EXPECT_EQ(pages.front().UsagePage, 0x000E);
    EXPECT_THAT(session_.GetButtonCapUsagePages(), IsEmpty());
}

using HapticInitializeTest = HapticTest;

TEST_F(HapticInitializeTest, OpensWithoutAccessRightsAndSharesTheDevice) {
    Plug();
    const auto information = vela::ScanHIDInformation(&session_);
    machine_.ForgetCalls();
    EXPECT_EQ(session_.Initialize(information), kHidOpen);
    const auto calls = machine_.CallTexts();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_THAT(calls[0], testing::StartsWith("CreateFileW("));
    EXPECT_THAT(calls[0], testing::EndsWith("0x0, 0x3, 3, 0x0)"));
    session_.Uninitialize();
    EXPECT_THAT(log_.TextsOf("Initialize"), ElementsAre(kSucceeded));
}

TEST_F(HapticInitializeTest, RefusesANullRecord) {
    EXPECT_EQ(session_.Initialize(nullptr), kHidFailed);
    EXPECT_THAT(log_.TextsOf("Initialize"),
                ElementsAre("WARNING Initialize: Initialize failed, HID info is null pointer."));
}

TEST_F(HapticInitializeTest, RefusesTheEmptyRecordOfAMachineWithoutTheDevice) {
    EXPECT_EQ(OpenSession(), kHidFailed);
    EXPECT_EQ(machine_.CountCalls("CreateFileW"), 0U);
    EXPECT_THAT(log_.TextsOf("Initialize"),
                ElementsAre(std::string("WARNING Initialize: ") + kNoIntensity));
}

TEST_F(HapticInitializeTest, RefusesATouchpadWithoutIntensity) {
    HapticLayout layout;
    layout.hasIntensity = false;
    Plug(layout);
    EXPECT_EQ(OpenSession(), kHidFailed);
    EXPECT_THAT(log_.TextsOf("Initialize"),
                ElementsAre(std::string("WARNING Initialize: ") + kNoIntensity));
}

TEST_F(HapticInitializeTest, FindsItOpenAlready) {
    Open();
    EXPECT_EQ(OpenSession(), kHidOpen);
    EXPECT_EQ(device_->OpenHandles(), 1U);
    session_.Uninitialize();
    EXPECT_THAT(
        log_.TextsOf("Initialize"),
        ElementsAre(kSucceeded, "INFO Initialize: Re-initialize, return succeeded immediately."));
}

struct OpenFailure {
    std::uint32_t error;
    std::uint32_t result;
};
class HapticOpenFailureTest : public HapticTest, public testing::WithParamInterface<OpenFailure> {};

TEST_P(HapticOpenFailureTest, IsReturnedAndKeepsNothing) {
    Plug();
    const auto information = vela::ScanHIDInformation(&session_);
    machine_.FailNext("CreateFileW", Fault::Error(GetParam().error));
    EXPECT_EQ(session_.Initialize(information), GetParam().result);
    EXPECT_EQ(information.use_count(), 1);
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
    EXPECT_FALSE(session_.Uninitialize());
    EXPECT_THAT(log_.TextsOf("Initialize"),
                ElementsAre("ERROR Initialize: Initialize failed, CreateFile failed GetLastError(" +
                            std::to_string(GetParam().error) + ")."));
}

INSTANTIATE_TEST_SUITE_P(Errors, HapticOpenFailureTest,
                         testing::Values(OpenFailure{32, kHidHeldByOther},
                                         OpenFailure{2, kHidFailed}, OpenFailure{5, kHidFailed}));

using HapticUninitializeTest = HapticTest;

TEST_F(HapticUninitializeTest, ClosesTheHandleAndReleasesTheRecord) {
    Open();
    EXPECT_TRUE(session_.Uninitialize());
    EXPECT_THAT(machine_.OpenHandles(), IsEmpty());
    EXPECT_EQ(machine_.PreparsedDataInUse(), 0U);
    EXPECT_THAT(log_.TextsOf("Uninitialize"),
                ElementsAre("INFO Uninitialize: CHapticTouchpadHID Uninitialize succeeded."));
}

TEST_F(HapticUninitializeTest, OfAClosedSessionLogsNothing) {
    EXPECT_FALSE(session_.Uninitialize());
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(HapticUninitializeTest, MayBeFollowedByANewInitialize) {
    Open();
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(session_.Uninitialize());
        EXPECT_EQ(OpenSession(), kHidOpen);
        EXPECT_EQ(session_.GetIntensityLevel(), 42U);
    }
    EXPECT_TRUE(session_.Uninitialize());
}

TEST_F(HapticUninitializeTest, IsTheOnlyWayToCloseTheHandle) {
    Plug();
    {
        vela::CHapticTouchpadHID session;
        ASSERT_EQ(session.Initialize(vela::ScanHIDInformation(&session)), kHidOpen);
    }
    EXPECT_THAT(machine_.OpenHandles(), testing::SizeIs(1));
    EXPECT_EQ(machine_.PreparsedDataInUse(), 0U);
}

TEST_F(HapticUninitializeTest, LogsThatTheRecordIsReleasedBeforeItsEnd) {
    Open();
    session_.Uninitialize();
    const std::vector<std::string> lines = log_.Texts();
    ASSERT_THAT(lines, testing::SizeIs(testing::Ge(2U)));
    EXPECT_THAT(lines[lines.size() - 2], testing::StartsWith("INFO ~CHIDInformation: "));
    EXPECT_EQ(lines.back(), "INFO Uninitialize: CHapticTouchpadHID Uninitialize succeeded.");
}

}  // namespace
}  // namespace kit
