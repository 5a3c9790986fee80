// Parsing and reports of whole devices.
#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ExampleDescriptors.h"
#include "testing/unit/simulator/hid/ParsedDevice.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace simulator::hid {
namespace {

using virtual_touchpad::BuildReportDescriptor;
using virtual_touchpad::TouchpadLayout;
using UsageList = std::vector<USAGE>;

TEST(PrecisionTouchpadDevice, HasTwoTopLevelCollections) {
    ASSERT_EQ(ParseReportDescriptor(PrecisionTouchpad()).size(), 2u);
    const HIDP_CAPS touchpad = ParsedDevice(PrecisionTouchpad(), 0).Caps();
    EXPECT_EQ(touchpad.UsagePage, kDigitizerPage);
    EXPECT_EQ(touchpad.Usage, 0x05);
    EXPECT_EQ(touchpad.InputReportByteLength, 1 + 2 * 5 + 2 + 1);
    EXPECT_EQ(touchpad.OutputReportByteLength, 1 + 3);
    EXPECT_EQ(touchpad.FeatureReportByteLength, 1 + 256);
    EXPECT_EQ(touchpad.NumberLinkCollectionNodes, 4);
    EXPECT_EQ(touchpad.NumberInputButtonCaps, 2 * 2 + 1);
    EXPECT_EQ(touchpad.NumberInputValueCaps, 2 * 3 + 2);
    EXPECT_EQ(touchpad.NumberInputDataIndices, 13);
    EXPECT_EQ(touchpad.NumberFeatureValueCaps, 4);
    const HIDP_CAPS configuration = ParsedDevice(PrecisionTouchpad(), 1).Caps();
    EXPECT_EQ(configuration.Usage, 0x0E);
    EXPECT_EQ(configuration.FeatureReportByteLength, 2);
    EXPECT_EQ(configuration.InputReportByteLength, 0);
}

TEST(PrecisionTouchpadDevice, FingersAreDistinguishedByLinkCollection) {
    const ParsedDevice device(PrecisionTouchpad());
    const Bytes report{1,    0x0B, 0x11, 0x01, 0x22, 0x02, 0x06,
                       0x33, 0x03, 0x44, 0x04, 0x34, 0x12, 0x02 | 0x80};
    EXPECT_EQ(device.Value(HidP_Input, 0x51, report, kDigitizerPage, 1), 2u);
    EXPECT_EQ(device.Value(HidP_Input, 0x30, report, kGenericPage, 1), 0x0111u);
    EXPECT_EQ(device.Value(HidP_Input, 0x31, report, kGenericPage, 1), 0x0222u);
    EXPECT_EQ(device.Value(HidP_Input, 0x51, report, kDigitizerPage, 2), 1u);
    EXPECT_EQ(device.Value(HidP_Input, 0x31, report, kGenericPage, 2), 0x0444u);
    EXPECT_EQ(device.Value(HidP_Input, 0x56, report, kDigitizerPage), 0x1234u);
    EXPECT_EQ(device.Value(HidP_Input, 0x54, report, kDigitizerPage), 2u);
    EXPECT_EQ(device.Get(HidP_Input, report, kDigitizerPage, 1).usages, (UsageList{0x42, 0x47}));
    EXPECT_EQ(device.Get(HidP_Input, report, kDigitizerPage, 2).usages, (UsageList{0x42}));
    EXPECT_EQ(device.Get(HidP_Input, report, kButtonPage).usages, (UsageList{0x01}));
}

TEST(PrecisionTouchpadDevice, HasItsIntensityInAFeatureReportOfItsOwn) {
    const ParsedDevice device(PrecisionTouchpad());
    const auto caps = device.ValueCaps(HidP_Feature);
    ASSERT_EQ(caps.size(), 4u);
    EXPECT_EQ(caps[3].UsagePage, kHapticsPage);
    EXPECT_EQ(caps[3].NotRange.Usage, 0x23);
    EXPECT_EQ(caps[3].ReportID, 4);
    EXPECT_EQ(caps[3].LinkCollection, 3);
    EXPECT_EQ(caps[3].LinkUsage, 0x01);
    Bytes report = device.EmptyReport(HidP_Feature);
    report[0] = 4;
    EXPECT_EQ(device.SetValue(HidP_Feature, 0x23, 50, report, kHapticsPage), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report[1], 50);
}

TEST(KeyboardDevice, ReportsTheKeysInItsSlots) {
    const ParsedDevice device(Keyboard());
    const Bytes report{0, 0x02, 0, 0x04, 0x00, 0x1D, 0, 0, 0};
    EXPECT_EQ(device.Get(HidP_Input, report, 0x07).usages, (UsageList{0xE1, 0x04, 0x1D}));
    EXPECT_EQ(device.MaxUsages(HidP_Input), 14u);
}

TEST(ButtonTouchpad, HasTheUsualLayout) {
    const ParsedDevice device(BuildReportDescriptor({}));
    const HIDP_CAPS caps = device.Caps();
    EXPECT_EQ(caps.UsagePage, 0xFF80);
    EXPECT_EQ(caps.Usage, 0x80);
    EXPECT_EQ(caps.InputReportByteLength, 3);
    EXPECT_EQ(caps.OutputReportByteLength, virtual_touchpad::kOutputReportLength);
    EXPECT_EQ(caps.FeatureReportByteLength, 5);
    EXPECT_EQ(device.MaxUsages(HidP_Input), 8u);
    EXPECT_EQ(device.MaxUsages(HidP_Output), 5u);
}

TEST(ButtonTouchpad, TakesALightReport) {
    const ParsedDevice device(BuildReportDescriptor({}));
    Bytes report = device.EmptyReport(HidP_Output);
    ULONG value = 0x10;
    for (const USAGE usage : virtual_touchpad::kLightUsages) {
        EXPECT_EQ(device.SetValue(HidP_Output, usage, value++, report), HIDP_STATUS_SUCCESS);
    }
    EXPECT_EQ(device.Set(HidP_Output, {0x01, 0x03}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{2, 0x10, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x05, 0, 0, 0, 0}));
    EXPECT_EQ(device.Set(HidP_Output, {0x30}, report).status, HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
}

TEST(ButtonTouchpad, TakesARequest) {
    const ParsedDevice device(BuildReportDescriptor({}));
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.Set(HidP_Output, {0x30}, report).status, HIDP_STATUS_SUCCESS);
    Bytes expected = device.EmptyReport(HidP_Output);
    expected[0] = virtual_touchpad::kRequestReportId;
    expected[virtual_touchpad::kRequestByteOffset] = 0x01;
    EXPECT_EQ(report, expected);
}

TEST(ButtonTouchpad, TakesActiveUsagesIntoSlots) {
    TouchpadLayout layout;
    layout.activeUsagesAsArray = true;
    const ParsedDevice device(BuildReportDescriptor(layout));
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.Set(HidP_Output, {0x02, 0x04}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(device.Unset(HidP_Output, {0x01}, report).status, HIDP_STATUS_BUTTON_NOT_PRESSED);
    EXPECT_EQ(report, (Bytes{2, 0, 0, 0, 0, 0, 0, 0, 2, 4, 0, 0, 0}));
}

TEST(ButtonTouchpad, WithoutALightHasPaddingInItsPlace) {
    TouchpadLayout layout;
    layout.missingLightUsages = {0x22};
    const ParsedDevice device(BuildReportDescriptor(layout));
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x22, 1, report), HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x24, 1, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report[4], 1);
}

TEST(ButtonTouchpad, ReportsButtonsAndFirmwareState) {
    const ParsedDevice device(BuildReportDescriptor({}));
    EXPECT_EQ(device.Get(HidP_Input, {1, 0x81, 0x03}).usages, (UsageList{0x40, 0x47}));
    EXPECT_EQ(device.Value(HidP_Input, 0x48, {1, 0x81, 0x03}), 3u);
}

}  // namespace
}  // namespace simulator::hid
