// Discovery of the button touchpad of the vendors in "Vela.ini", and of any haptic touchpad.
#include "testing/kit/native/LibraryFolder.h"
#include "testing/unit/hid/HidTest.h"

namespace hid_test {
namespace {

using namespace kit;
using testing::UnorderedElementsAreArray;

class TouchpadDiscovery : public HidTest {
 protected:
    std::shared_ptr<Device> PlugVendor(std::uint16_t vendorId) {
        TouchpadLayout layout;
        layout.vendorId = vendorId;
        return Plug(layout);
    }
    std::shared_ptr<vela::CHIDInformation> ScanForTouchpad() {
        return vela::ScanHIDInformation(&session_);
    }
    template <typename Map>
    static std::vector<std::wstring> Keys(const Map& map) {
        std::vector<std::wstring> keys;
        for (const auto& entry : map) keys.push_back(entry.first);
        return keys;
    }

    vela::CTandrelHID session_;
};

struct VelaIni {
    const char* name;
    const char* text;
};

class WithoutVendors : public TouchpadDiscovery, public testing::WithParamInterface<VelaIni> {};

TEST_P(WithoutVendors, OnlyTheDefaultVendorIsFound) {
    const LibraryFolder folder;
    if (GetParam().text != nullptr) folder.PutVelaIni(GetParam().text);
    PlugVendor(0x1A2B);
    EXPECT_TRUE(ScanForTouchpad()->devicePath.empty());
    const auto touchpad = PlugVendor(0x0488);
    EXPECT_EQ(ScanForTouchpad()->devicePath, touchpad->Path());
}

INSTANTIATE_TEST_SUITE_P(Files, WithoutVendors,
                         testing::Values(VelaIni{"NoFile", nullptr}, VelaIni{"EmptyFile", ""},
                                         VelaIni{"NoSection", "vendor=1A2B\n"},
                                         VelaIni{"NoHexadecimalSection", "[zz]\n[vendor]\n"}),
                         [](const auto& test) { return test.param.name; });

TEST_F(TouchpadDiscovery, WithVendorsFindsNoOther) {
    const LibraryFolder folder;
    folder.PutVelaIni("[1A2B]\n[2F00]\n");
    PlugVendor(0x0488);
    PlugVendor(0x1A2C);
    EXPECT_TRUE(ScanForTouchpad()->devicePath.empty());
    const auto touchpad = PlugVendor(0x2F00);
    EXPECT_EQ(ScanForTouchpad()->devicePath, touchpad->Path());
}

TEST_F(TouchpadDiscovery, TakesNeitherAnotherPageNorAnotherUsageOfItsVendor) {
    TouchpadLayout otherPage;
    otherPage.usagePage = 0xFF00;
    TouchpadLayout otherUsage;
    otherUsage.usage = 0x81;
    Plug(otherPage);
    Plug(otherUsage);
    EXPECT_TRUE(ScanForTouchpad()->devicePath.empty());
}

TEST_F(TouchpadDiscovery, CataloguesTheTouchpadsInputsLightsAndClickMode) {
    Plug();
    const auto record = ScanForTouchpad();
    EXPECT_THAT(
        Keys(record->valueCapsMap),
        UnorderedElementsAreArray({L"HID_INPUT_72",  //
                                   L"HID_OUTPUT_32", L"HID_OUTPUT_33", L"HID_OUTPUT_34",
                                   L"HID_OUTPUT_36", L"HID_OUTPUT_38", L"HID_OUTPUT_39",
                                   L"HID_OUTPUT_162",  //
                                   L"HID_FEATURE_97", L"HID_FEATURE_98", L"HID_FEATURE_99"}));
    EXPECT_THAT(
        Keys(record->buttonCapsMap),
        UnorderedElementsAreArray(
            {L"HID_INPUT_64", L"HID_INPUT_65", L"HID_INPUT_66", L"HID_INPUT_67", L"HID_INPUT_68",
             L"HID_INPUT_69", L"HID_INPUT_70", L"HID_INPUT_71", L"HID_OUTPUT_1", L"HID_OUTPUT_2",
             L"HID_OUTPUT_3", L"HID_OUTPUT_4", L"HID_OUTPUT_48"}));
}

TEST_F(TouchpadDiscovery, FindsAlsoATouchpadWithoutClickMode) {
    TouchpadLayout layout;
    layout.hasFeatureReport = false;
    const auto device = Plug(layout);
    const auto record = ScanForTouchpad();
    EXPECT_EQ(record->devicePath, device->Path());
    HIDP_VALUE_CAPS clickMode{};
    EXPECT_FALSE(record->GetFeatureValueCaps(98, clickMode));
}

}  // namespace
}  // namespace hid_test
