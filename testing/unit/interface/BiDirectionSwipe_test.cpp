// The touchpads that support the swipe gesture in both directions.
#include "testing/kit/native/ExportsTest.h"
#include "testing/kit/native/LibraryFolder.h"
#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace {

using namespace kit;
using testing::IsEmpty;
using virtual_touchpad::CollectionKind;
using virtual_touchpad::MainItem;
using virtual_touchpad::ReportDescriptorBuilder;

using SwipeTest = ExportsTest;

struct SwipeCase {
    const char* name;
    std::uint16_t vendorId;
    std::uint16_t versionNumber;
    std::vector<std::uint8_t> inputReportIds;
    VELA_BOOL supported;
};

class SwipeOfTouchpad : public SwipeTest, public testing::WithParamInterface<SwipeCase> {};

TEST_P(SwipeOfTouchpad, DependsOnFamilyAndFirmware) {
    const LibraryFolder folder;
    folder.PutVelaIni("[0488]\n[1A2B]\n");
    TouchpadLayout layout;
    layout.vendorId = GetParam().vendorId;
    layout.versionNumber = GetParam().versionNumber;
    layout.inputReportIds = GetParam().inputReportIds;
    Open(layout);
    machine_.ForgetCalls();
    EXPECT_EQ(IsSupportBiDirectionSwipe(), GetParam().supported);
    EXPECT_THAT(machine_.CallTexts({"HidD_GetAttributes", "HidP_GetButtonCaps"}), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Touchpads, SwipeOfTouchpad,
    testing::Values(SwipeCase{"OldFirmware", 0x0488, 98, {0x10}, 0},
                    SwipeCase{"OldestFirmware", 0x0488, 0, {0x10}, 0},
                    SwipeCase{"FirstFirmwareWithIt", 0x0488, 99, {0x10}, 1},
                    SwipeCase{"LaterFirmware", 0x0488, 0xFFFF, {0x10}, 1},
                    SwipeCase{"GestureInAnotherReport", 0x0488, 98, {0x01}, 1},
                    // A usage in two reports is catalogued once, with its later capability.
                    SwipeCase{"GestureInBothThisOneLast", 0x0488, 98, {0x01, 0x10}, 0},
                    SwipeCase{"GestureInBothTheOtherLast", 0x0488, 98, {0x10, 0x01}, 1},
                    SwipeCase{"OtherVendor", 0x1A2B, 98, {0x10}, 1}),
    [](const testing::TestParamInfo<SwipeCase>& test) { return test.param.name; });

TEST_F(SwipeTest, IsThereOnATouchpadWithoutTheGestureUsage) {
    ReportDescriptorBuilder builder;
    builder.UsagePage(0xFF80)
        .Usage(0x80)
        .Collection(CollectionKind::Application)
        .ReportId(0x10)
        .Buttons(MainItem::Input, 0x40, 0x44)
        .Padding(MainItem::Input, 3)
        .Value(MainItem::Input, 0x45, 8, 0xFF)
        .Buttons(MainItem::Output, 0x45, 0x4C)
        .EndCollection();
    TouchpadLayout layout;
    layout.versionNumber = 98;
    simulator::DeviceDescription description = Describe(layout);
    description.reportDescriptor = builder.Bytes();
    device_ = machine_.Plug(description);
    ASSERT_EQ(Init(), 1);
    EXPECT_EQ(IsSupportBiDirectionSwipe(), 1);
}

TEST_F(SwipeTest, IsNotReportedWithoutASession) {
    Plug();
    EXPECT_EQ(IsSupportBiDirectionSwipe(), 0);
    ASSERT_EQ(Init(), 1);
    EXPECT_EQ(IsSupportBiDirectionSwipe(), 1);
    UnInit();
    EXPECT_EQ(IsSupportBiDirectionSwipe(), 0);
}

}  // namespace
