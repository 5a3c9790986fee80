#include <gtest/gtest.h>

#include "testing/unit/virtual-touchpad/HostFile.h"
#include "testing/unit/virtual-touchpad/PluggedTouchpad.h"

namespace virtual_touchpad {
namespace {

constexpr std::int32_t kStatusDeviceNotReady = static_cast<std::int32_t>(0xC00000A3);

bool Get(const HostFile& host, Report& report) {
    return HidD_GetFeature(host.Handle(), report.data(), static_cast<ULONG>(report.size())) != 0;
}

bool Set(const HostFile& host, Report report) {
    return HidD_SetFeature(host.Handle(), report.data(), static_cast<ULONG>(report.size())) != 0;
}

TEST(Features, AHostReadsWhatTheDeviceHolds) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path(), 0);
    touchpad.Device().SetFeature({kClickModeReportId, 1, 2, 3, 4});
    Report report{kClickModeReportId, 0, 0, 0, 0};
    ASSERT_TRUE(Get(host, report));
    EXPECT_EQ(report, (Report{kClickModeReportId, 1, 2, 3, 4}));
    EXPECT_EQ(touchpad.Device().State().featureGetCount, 1u);
}

TEST(Features, AnUnsetFeatureReadsAsZeros) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path(), 0);
    EXPECT_FALSE(touchpad.Device().Feature(kClickModeReportId).has_value());
    Report report{kClickModeReportId, 9, 9, 9, 9};
    ASSERT_TRUE(Get(host, report));
    EXPECT_EQ(report, (Report{kClickModeReportId, 0, 0, 0, 0}));
}

TEST(Features, TheDeviceKeepsWhatAHostSets) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path(), 0);
    EXPECT_TRUE(Set(host, {kClickModeReportId, 5, 6, 7, 8}));
    EXPECT_EQ(touchpad.Device().Feature(kClickModeReportId),
              (Report{kClickModeReportId, 5, 6, 7, 8}));
    EXPECT_EQ(touchpad.Device().State().featureSetCount, 1u);
}

TEST(Features, OneRequestFailsOnOrder) {
    PluggedTouchpad touchpad;
    HostFile host(touchpad.Path(), 0);
    touchpad.Device().FailNextFeature(kStatusDeviceNotReady);
    EXPECT_FALSE(Set(host, {kClickModeReportId, 1, 1, 1, 1}));
    EXPECT_EQ(GetLastError(), ERROR_NOT_READY);
    EXPECT_FALSE(touchpad.Device().Feature(kClickModeReportId).has_value());
    EXPECT_TRUE(Set(host, {kClickModeReportId, 1, 1, 1, 1}));
}

}  // namespace
}  // namespace virtual_touchpad
