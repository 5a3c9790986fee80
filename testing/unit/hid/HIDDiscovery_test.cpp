// A scan that finds its device: the record, the platform calls, the log line.
#include "testing/unit/hid/HidTest.h"

#include <cstring>

#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace hid_test {
namespace {

using testing::SizeIs;
using virtual_touchpad::ReportDescriptorBuilder;

std::string Utf8(const std::wstring& ascii) { return std::string(ascii.begin(), ascii.end()); }

std::string OpenCall(const Device& device) {
    return "CreateFileW(\"" + Utf8(device.Path()) + "\", 0x0, 0x3, 3, 0x0)";
}

class HIDDiscoveryTest : public HidTest {};

TEST_F(HIDDiscoveryTest, WithoutAQueryGivesAnEmptyRecordAtOnce) {
    Plug();
    const auto record = vela::ScanHIDInformation(nullptr);
    ASSERT_NE(record, nullptr);
    EXPECT_TRUE(record->devicePath.empty());
    EXPECT_THAT(machine_.Calls(), IsEmpty());
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(HIDDiscoveryTest, WithoutDevicesGivesAnEmptyRecordSilently) {
    const auto record = Scan();
    ASSERT_NE(record, nullptr);
    EXPECT_TRUE(record->devicePath.empty());
    EXPECT_EQ(record->attributes.VendorID, 0);
    EXPECT_EQ(record->caps.UsagePage, 0);
    EXPECT_EQ(record->preparsedData, nullptr);
    EXPECT_THAT(record->valueCapsMap, IsEmpty());
    EXPECT_THAT(record->buttonCapsMap, IsEmpty());
    EXPECT_THAT(query_.Questions(), IsEmpty());
    EXPECT_EQ(machine_.CountCalls("CreateFileW"), 0U);
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(HIDDiscoveryTest, WithoutAMatchingDeviceGivesAnEmptyRecordSilently) {
    TouchpadLayout layout;
    layout.vendorId = 0x0489;
    Plug(layout);
    const auto record = Scan();
    EXPECT_TRUE(record->devicePath.empty());
    EXPECT_EQ(record->attributes.VendorID, 0);
    EXPECT_EQ(record->caps.UsagePage, 0);
    EXPECT_EQ(record->preparsedData, nullptr);
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(HIDDiscoveryTest, FillsTheRecordOfTheDeviceFound) {
    TouchpadLayout layout;
    layout.vendorId = 0x0488;
    layout.productId = 0xBEEF;
    layout.versionNumber = 0x0107;
    const auto device = Plug(layout);
    const auto record = Scan();

    EXPECT_EQ(record->devicePath, device->Path());
    EXPECT_EQ(record->attributes.Size, sizeof(HIDD_ATTRIBUTES));
    EXPECT_EQ(record->attributes.VendorID, 0x0488);
    EXPECT_EQ(record->attributes.ProductID, 0xBEEF);
    EXPECT_EQ(record->attributes.VersionNumber, 0x0107);
    HIDP_CAPS caps{};
    ASSERT_GT(HidP_GetCaps(record->preparsedData, &caps), 0);
    EXPECT_EQ(std::memcmp(&record->caps, &caps, sizeof caps), 0);
    EXPECT_EQ(record->caps.UsagePage, 0xFF80);
    EXPECT_EQ(record->caps.Usage, 0x80);
    HIDP_VALUE_CAPS clickMode{};
    EXPECT_TRUE(record->GetFeatureValueCaps(98, clickMode));
    HIDP_BUTTON_CAPS request{};
    EXPECT_TRUE(record->GetButtonCaps(HidP_Output, 48, request));
    EXPECT_EQ(PreparsedDataInUse(), 1U);
    EXPECT_THAT(log_.Texts(),
                ElementsAre("INFO ScanHIDInformation: GetHIDInformation PID (0xbeef) FW "
                            "version(0x107)."));
}

TEST_F(HIDDiscoveryTest, OpensWithoutAccessAndStopsAtTheFirstMatch) {
    TouchpadLayout other;
    other.vendorId = 0x1234;
    const auto first = Plug(other);
    const auto second = Plug();
    Plug();
    const auto record = Scan();
    EXPECT_EQ(record->devicePath, second->Path());
    EXPECT_THAT(
        machine_.CallTexts({"SetupDiDestroyDeviceInfoList", "CreateFileW", "HidD_GetPreparsedData",
                            "HidD_GetAttributes", "HidP_GetCaps", "HidP_GetValueCaps",
                            "HidP_GetButtonCaps", "CloseHandle", "HidD_FreePreparsedData",
                            "ReadFile", "WriteFile", "HidD_GetFeature", "HidD_SetFeature"}),
        ElementsAre("SetupDiDestroyDeviceInfoList(devices#1)",                              //
                    OpenCall(*first), "HidD_GetPreparsedData(file#2)",                      //
                    "HidD_GetAttributes(file#2)", "HidP_GetCaps()", "CloseHandle(file#2)",  //
                    OpenCall(*second), "HidD_GetPreparsedData(file#3)",                     //
                    "HidD_GetAttributes(file#3)", "HidP_GetCaps()",                         //
                    "HidP_GetValueCaps(input, 1)", "HidP_GetValueCaps(output, 7)",          //
                    "HidP_GetValueCaps(feature, 3)",                                        //
                    "HidP_GetButtonCaps(input, 1)", "HidP_GetButtonCaps(output, 2)",        //
                    "CloseHandle(file#3)"));
    EXPECT_THAT(query_.Questions(),
                ElementsAre("filters", "filters", "value pages", "button pages"));
}

TEST_F(HIDDiscoveryTest, IsLoggedWhileTheDeviceIsStillOpen) {
    Plug();
    bool logged = false;
    machine_.SetFaultPolicy([&](const simulator::Call& call) -> std::optional<Fault> {
        if (call.function == "CloseHandle") {
            logged = log_.WaitForLine("GetHIDInformation PID");
        }
        return std::nullopt;
    });
    Scan();
    EXPECT_TRUE(logged);
}

TEST_F(HIDDiscoveryTest, TakesTheFirstOfTwoMatchesInTheSystemsOrder) {
    const auto first = Plug();
    const auto second = Plug();
    EXPECT_EQ(Scan()->devicePath, first->Path());
    EXPECT_THAT(machine_.CallTexts({"CreateFileW"}), ElementsAre(OpenCall(*first)));
    first->Unplug();
    first->PlugIn();
    EXPECT_EQ(Scan()->devicePath, second->Path());
}

TEST_F(HIDDiscoveryTest, ScansAnewEveryTime) {
    const auto device = Plug();
    const auto before = Scan();
    device->Unplug();
    EXPECT_TRUE(Scan()->devicePath.empty());
    device->PlugIn();
    const auto after = Scan();
    EXPECT_EQ(after->devicePath, device->Path());
    EXPECT_NE(after, before);
    EXPECT_NE(after->preparsedData, before->preparsedData);
    EXPECT_EQ(before->devicePath, device->Path());
}

TEST_F(HIDDiscoveryTest, FindsADeviceThatAnotherProgramHoldsForItself) {
    const auto device = Plug();
    device->HoldElsewhere();
    EXPECT_EQ(Scan()->devicePath, device->Path());
}

TEST_F(HIDDiscoveryTest, JudgesEachTopLevelCollectionOfADeviceByItself) {
    DeviceDescription description = Describe({});
    const Bytes second = ReportDescriptorBuilder()
                             .UsagePage(0xFF80)
                             .Usage(0x81)
                             .Collection(virtual_touchpad::CollectionKind::Application)
                             .ReportId(0x20)
                             .Value(virtual_touchpad::MainItem::Input, 0x48, 8, 255)
                             .Buttons(virtual_touchpad::MainItem::Input, 0x40, 0x47)
                             .EndCollection()
                             .Bytes();
    description.reportDescriptor.insert(description.reportDescriptor.end(), second.begin(),
                                        second.end());
    const auto devices = machine_.PlugAll(description);
    ASSERT_THAT(devices, SizeIs(2));
    EXPECT_EQ(Scan()->devicePath, devices[0]->Path());
    query_.filters = {{0x0488, 0xFF80, 0x81}};
    EXPECT_EQ(Scan()->devicePath, devices[1]->Path());
}

TEST_F(HIDDiscoveryTest, MayRunOnSeveralThreadsAtOnce) {
    const auto device = Plug();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&device] {
            ScriptedQuery session;
            for (int round = 0; round < 25; ++round) {
                const auto record = vela::ScanHIDInformation(&session);
                EXPECT_EQ(record->devicePath, device->Path());
                EXPECT_THAT(record->buttonCapsMap, SizeIs(13));
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(PreparsedDataInUse(), 0U);
}

}  // namespace
}  // namespace hid_test
