#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testing/unit/virtual-touchpad/HostFile.h"
#include "testing/unit/virtual-touchpad/PluggedTouchpad.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"

namespace virtual_touchpad {
namespace {

using namespace virtual_touchpad::events;

HIDP_CAPS CapsOf(const HostFile& file) {
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    HIDP_CAPS caps = {};
    EXPECT_TRUE(HidD_GetPreparsedData(file.Handle(), &preparsed));
    EXPECT_EQ(HidP_GetCaps(preparsed, &caps), HIDP_STATUS_SUCCESS);
    HidD_FreePreparsedData(preparsed);
    return caps;
}

HIDD_ATTRIBUTES AttributesOf(const HostFile& file) {
    HIDD_ATTRIBUTES attributes = {};
    attributes.Size = sizeof(attributes);
    EXPECT_TRUE(HidD_GetAttributes(file.Handle(), &attributes));
    return attributes;
}

TEST(Enumeration, ListsPluggedDevicesWithTheirPaths) {
    PluggedTouchpad touchpad;
    bool found = false;
    for (const PluggedDevice& device : PluggedDevices()) {
        if (device.name != L"tested") continue;
        found = true;
        EXPECT_EQ(device.hidPath, touchpad.Path());
    }
    EXPECT_TRUE(found);
}

TEST(Enumeration, DeviceReportsItsIdsAndProductString) {
    TouchpadLayout layout;
    layout.vendorId = 0xABCD;
    layout.productId = 0x4321;
    layout.versionNumber = 7;
    layout.productString = L"Detachable test touchpad";
    PluggedTouchpad touchpad(layout);
    HostFile file(touchpad.Path(), 0);
    const HIDD_ATTRIBUTES attributes = AttributesOf(file);
    EXPECT_EQ(attributes.VendorID, 0xABCD);
    EXPECT_EQ(attributes.ProductID, 0x4321);
    EXPECT_EQ(attributes.VersionNumber, 7);
    wchar_t product[128] = {};
    EXPECT_TRUE(HidD_GetProductString(file.Handle(), product, sizeof(product)));
    EXPECT_EQ(std::wstring(product), layout.productString);
}

TEST(Enumeration, ReportLengthsFollowTheDescriptor) {
    PluggedTouchpad touchpad;
    const HIDP_CAPS caps = CapsOf(HostFile(touchpad.Path(), 0));
    EXPECT_EQ(caps.UsagePage, 0xFF80);
    EXPECT_EQ(caps.Usage, 0x80);
    EXPECT_EQ(caps.InputReportByteLength, 3);
    EXPECT_EQ(caps.OutputReportByteLength, kOutputReportLength);
    EXPECT_EQ(caps.FeatureReportByteLength, 5);
}

TEST(Enumeration, ANewLayoutHoldsAfterPluggingAnew) {
    PluggedTouchpad first;
    EXPECT_EQ(CapsOf(HostFile(first.Path(), 0)).FeatureReportByteLength, 5);
    first.PullOut();
    TouchpadLayout layout;
    layout.productId = 2;
    layout.hasFeatureReport = false;
    PluggedTouchpad second(layout);
    HostFile file(second.Path(), 0);
    EXPECT_EQ(AttributesOf(file).ProductID, 2);
    EXPECT_EQ(CapsOf(file).FeatureReportByteLength, 0);
}

TEST(Enumeration, TwoDevicesLiveSideBySide) {
    TouchpadLayout other;
    other.productId = 2;
    other.inputReportIds = {kSecondLayoutReportId};
    PluggedTouchpad left;
    PluggedTouchpad right(other, L"tested-too");
    ASSERT_NE(left.Path(), right.Path());
    HostFile leftFile(left.Path());
    HostFile rightFile(right.Path());
    EXPECT_EQ(AttributesOf(leftFile).ProductID, 0x1234);
    EXPECT_EQ(AttributesOf(rightFile).ProductID, 2);

    auto leftRead = leftFile.Read(3);
    auto rightRead = rightFile.Read(3);
    right.Control().SendEvent(kCameraButton);
    ASSERT_TRUE(rightRead->WaitFor(kSoon));
    EXPECT_THAT(rightRead->buffer, testing::ElementsAre(kSecondLayoutReportId, 0x02, 0x00));
    EXPECT_FALSE(leftRead->WaitFor(kShortly));
    EXPECT_EQ(left.Device().Opens(), 1u);
    EXPECT_EQ(right.Device().Opens(), 1u);
}

TEST(Enumeration, AHapticTouchpadLivesBesideATouchpad) {
    PluggedTouchpad touchpad;
    const HapticLayout layout;
    const std::wstring path = Plug(SettingsOf(layout), L"tested-haptic");
    {
        HostFile file(path, 0);
        EXPECT_EQ(AttributesOf(file).VendorID, layout.vendorId);
        EXPECT_EQ(CapsOf(file).UsagePage, HID_USAGE_PAGE_DIGITIZER);
        VirtualDevice device(L"tested-haptic");
        HapticFields fields;
        fields.intensity = 75;
        device.SetFeature(HapticsReport(fields));
        Report report(CapsOf(file).FeatureReportByteLength);
        report[0] = kHapticsReportId;
        ASSERT_TRUE(
            HidD_GetFeature(file.Handle(), report.data(), static_cast<ULONG>(report.size())));
        report.resize(kHapticsReportLength);
        EXPECT_EQ(report, HapticsReport(fields));
    }
    Unplug(L"tested-haptic");
}

TEST(Enumeration, PluggingANameTwiceFails) {
    PluggedTouchpad touchpad;
    EXPECT_THROW(Plug(TouchpadLayout{}, L"tested"), std::runtime_error);
    EXPECT_EQ(HostFile(touchpad.Path(), 0).AttributesError(), ERROR_SUCCESS);
}

TEST(Enumeration, BadNamesAreRefused) {
    EXPECT_THROW(Plug(TouchpadLayout{}, L""), std::runtime_error);
    EXPECT_THROW(Plug(TouchpadLayout{}, L"with blank"), std::runtime_error);
    EXPECT_THROW(Unplug(L"never-plugged"), std::runtime_error);
    EXPECT_THROW(VirtualDevice(L"never-plugged"), std::runtime_error);
}

}  // namespace
}  // namespace virtual_touchpad
