// The haptic session finds any vendor's touchpad that has haptics.
#include "haptic/HapticTouchpadHID.h"

#include "testing/unit/hid/HidTest.h"
#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace hid_test {
namespace {

using testing::UnorderedElementsAre;
using virtual_touchpad::MainItem;

constexpr std::uint16_t kDigitizerPage = 0x0D;
constexpr std::uint16_t kHapticsPage = 0x0E;
constexpr std::uint16_t kTouchScreen = 0x04;
constexpr std::uint16_t kTouchPad = 0x05;

class HapticTouchpadDiscovery : public HidTest {
 protected:
    std::shared_ptr<Device> PlugTouchpad(std::uint16_t vendorId) {
        DeviceDescription description;
        description.vendorId = vendorId;
        description.reportDescriptor =
            virtual_touchpad::BuildReportDescriptor(virtual_touchpad::HapticLayout{});
        return machine_.Plug(description);
    }
    // Plugs a collection with a usage of `featurePage` among its features.
    std::shared_ptr<Device> PlugCollection(std::uint16_t page, std::uint16_t usage,
                                           std::uint16_t featurePage) {
        DeviceDescription description;
        description.vendorId = 0x3F0A;
        description.reportDescriptor =
            virtual_touchpad::ReportDescriptorBuilder()
                .UsagePage(page)
                .Usage(usage)
                .Collection(virtual_touchpad::CollectionKind::Application)
                .UsagePage(featurePage)
                .Value(MainItem::Feature, 0x23, 8, 100)
                .EndCollection()
                .Bytes();
        return machine_.Plug(description);
    }
    std::shared_ptr<vela::CHIDInformation> ScanForHaptics() {
        return vela::ScanHIDInformation(&session_);
    }

    vela::CHapticTouchpadHID session_;
};

class AnyVendor : public HapticTouchpadDiscovery,
                  public testing::WithParamInterface<std::uint16_t> {};

TEST_P(AnyVendor, IsFound) {
    const auto touchpad = PlugTouchpad(GetParam());
    EXPECT_EQ(ScanForHaptics()->devicePath, touchpad->Path());
}

INSTANTIATE_TEST_SUITE_P(Vendors, AnyVendor, testing::Values(0x0488, 0x3F0A, 0x0001, 0xFFFF, 0));

TEST_F(HapticTouchpadDiscovery, CataloguesTheFeaturesOfTheHapticsPageAlone) {
    PlugTouchpad(0x3F0A);
    const auto record = ScanForHaptics();
    std::vector<std::wstring> keys;
    for (const auto& entry : record->valueCapsMap) keys.push_back(entry.first);
    EXPECT_THAT(keys, UnorderedElementsAre(L"HID_FEATURE_32", L"HID_FEATURE_35", L"HID_FEATURE_36",
                                           L"HID_FEATURE_37"));
    EXPECT_THAT(record->buttonCapsMap, IsEmpty());
    EXPECT_EQ(machine_.CountCalls("HidP_GetButtonCaps"), 0U);
}

TEST_F(HapticTouchpadDiscovery, TakesNoOtherCollectionWithHaptics) {
    PlugCollection(kDigitizerPage, kTouchScreen, kHapticsPage);
    PlugCollection(0x01, kTouchPad, kHapticsPage);
    EXPECT_TRUE(ScanForHaptics()->devicePath.empty());
    const auto touchpad = PlugCollection(kDigitizerPage, kTouchPad, kHapticsPage);
    EXPECT_EQ(ScanForHaptics()->devicePath, touchpad->Path());
}

TEST_F(HapticTouchpadDiscovery, PassesATouchpadWithoutHaptics) {
    PlugCollection(kDigitizerPage, kTouchPad, kDigitizerPage);
    const auto haptic = PlugTouchpad(0x3F0A);
    EXPECT_EQ(ScanForHaptics()->devicePath, haptic->Path());
    EXPECT_THAT(
        log_.TextsOf("FillValueCapUsagePages"),
        ElementsAre("WARNING FillValueCapUsagePages: FillValueCapUsagePages failed, doesn't "
                    "have matched report type"));
}

}  // namespace
}  // namespace hid_test
