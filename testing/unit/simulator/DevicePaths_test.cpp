#include "testing/unit/simulator/SimulatorTest.h"

namespace simulator_test {
namespace {

using testing::ElementsAre;

class DevicePathsInThePlatformsForm : public SimulatorTest {};

TEST_F(DevicePathsInThePlatformsForm, NameVendorProductAndClass) {
    EXPECT_EQ(Plug()->Path(),
              L"\\\\?\\hid#vid_0488&pid_1234#1&0&0000#{4d1e55b2-f16f-11cf-88cb-001111000030}");
    EXPECT_EQ(Plug()->Path(),
              L"\\\\?\\hid#vid_0488&pid_1234#2&0&0000#{4d1e55b2-f16f-11cf-88cb-001111000030}");
}

TEST_F(DevicePathsInThePlatformsForm, NumberSeveralCollections) {
    DeviceDescription description;
    description.reportDescriptor = DescriptorOfTwoCollections();
    EXPECT_THROW(machine_.Plug(description), std::invalid_argument);
    const auto devices = machine_.PlugAll(description);
    ASSERT_EQ(devices.size(), 2U);
    EXPECT_EQ(devices[0]->Path(),
              L"\\\\?\\hid#vid_0000&pid_0000&col01#1&0&0000#"
              L"{4d1e55b2-f16f-11cf-88cb-001111000030}");
    EXPECT_EQ(devices[1]->Path(),
              L"\\\\?\\hid#vid_0000&pid_0000&col02#1&0&0001#"
              L"{4d1e55b2-f16f-11cf-88cb-001111000030}");

    description.path = L"\\\\?\\HID#Pad#7#{x}";
    EXPECT_EQ(machine_.PlugAll(description)[1]->Path(), L"\\\\?\\HID#Pad&col02#7#{x}");
    description.path = L"plain";
    EXPECT_EQ(machine_.PlugAll(description)[0]->Path(), L"plain&col01");
}

TEST_F(DevicePathsInThePlatformsForm, AreNotGivenTwice) {
    DeviceDescription description;
    description.reportDescriptor = DescriptorWithIds();
    description.path = L"\\\\?\\hid#a";
    machine_.Plug(description);
    description.path = L"\\\\?\\HID#A";
    EXPECT_THROW(machine_.Plug(description), std::invalid_argument);
}

TEST_F(DevicePathsInThePlatformsForm, OfSeveralCollectionsReachTheirOwnReports) {
    DeviceDescription description;
    description.reportDescriptor = DescriptorOfTwoCollections();
    const auto devices = machine_.PlugAll(description);
    const HANDLE second = Open(*devices[1]);
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    ASSERT_TRUE(HidD_GetPreparsedData(second, &preparsed));
    HIDP_CAPS caps{};
    HidP_GetCaps(preparsed, &caps);
    HidD_FreePreparsedData(preparsed);
    EXPECT_EQ(caps.Usage, 0x84);

    Operation& read = StartRead(second, 2);
    devices[0]->SendInput({1, 5});
    EXPECT_EQ(Result(second, read), ERROR_IO_INCOMPLETE);
    devices[1]->SendInput({2, 6});
    EXPECT_THAT(read.bytes, ElementsAre(2, 6));
}

}  // namespace
}  // namespace simulator_test
