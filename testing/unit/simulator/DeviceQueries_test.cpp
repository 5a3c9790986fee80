#include "testing/unit/simulator/SimulatorTest.h"

namespace simulator_test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class FeatureReports : public SimulatorTest {};

TEST_F(FeatureReports, AreZeroAtFirst) {
    const auto device = Plug();
    EXPECT_EQ(device->Feature(4), (Bytes{4, 0, 0}));
    EXPECT_EQ(device->Feature(6), (Bytes{6, 0, 0, 0, 0}));
    EXPECT_THROW(device->Feature(9), std::invalid_argument);
}

TEST_F(FeatureReports, AreReadByTheIdInByteZeroWithoutTouchingTheRest) {
    const auto device = Plug();
    device->SetFeature({4, 0x11, 0x22});
    BYTE report[5] = {4, 0, 0, 0xEE, 0xEE};
    EXPECT_TRUE(HidD_GetFeature(Open(*device, 0), report, sizeof report));
    EXPECT_THAT(report, ElementsAre(4, 0x11, 0x22, 0xEE, 0xEE));
}

TEST_F(FeatureReports, AreWrittenCutToTheirOwnLength) {
    const auto device = Plug();
    const HANDLE file = Open(*device, 0);
    BYTE report[5] = {4, 0x11, 0x22, 0x33, 0x44};
    EXPECT_TRUE(HidD_SetFeature(file, report, sizeof report));
    EXPECT_EQ(device->Feature(4), (Bytes{4, 0x11, 0x22}));
    EXPECT_THAT(device->FeatureWrites(), ElementsAre(Bytes{4, 0x11, 0x22}));
}

TEST_F(FeatureReports, AreKeptWhenTheirWritesAreForgotten) {
    const auto device = Plug();
    const HANDLE file = Open(*device, 0);
    BYTE report[3] = {4, 0x11, 0x22};
    EXPECT_TRUE(HidD_SetFeature(file, report, sizeof report));
    device->ForgetFeatureWrites();
    EXPECT_THAT(device->FeatureWrites(), IsEmpty());
    EXPECT_EQ(device->Feature(4), (Bytes{4, 0x11, 0x22}));
    report[1] = 0x33;
    EXPECT_TRUE(HidD_SetFeature(file, report, sizeof report));
    EXPECT_THAT(device->FeatureWrites(), ElementsAre(Bytes{4, 0x33, 0x22}));
}

TEST_F(FeatureReports, HaveALeadingZeroWhereThereAreNoIds) {
    const auto device = Plug(DescriptorWithoutIds());
    const HANDLE file = Open(*device, 0);
    BYTE report[3] = {0, 7, 8};
    EXPECT_TRUE(HidD_SetFeature(file, report, sizeof report));
    EXPECT_EQ(device->Feature(0), (Bytes{0, 7, 8}));
    report[0] = 1;
    EXPECT_FALSE(HidD_GetFeature(file, report, sizeof report));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

struct FeatureRefusal {
    const char* name;
    BYTE reportId;
    ULONG length;
    DWORD error;
};

class RefusedFeatureReports : public SimulatorTest,
                              public testing::WithParamInterface<FeatureRefusal> {};

TEST_P(RefusedFeatureReports, FailBothWays) {
    const auto device = Plug();
    const HANDLE file = Open(*device, 0);
    BYTE report[8] = {GetParam().reportId};
    EXPECT_FALSE(HidD_GetFeature(file, report, GetParam().length));
    EXPECT_EQ(GetLastError(), GetParam().error);
    SetLastError(0);
    EXPECT_FALSE(HidD_SetFeature(file, report, GetParam().length));
    EXPECT_EQ(GetLastError(), GetParam().error);
    EXPECT_THAT(device->FeatureWrites(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, RefusedFeatureReports,
                         testing::Values(FeatureRefusal{"Empty", 4, 0, ERROR_INVALID_USER_BUFFER},
                                         FeatureRefusal{"Short", 6, 4, ERROR_INVALID_PARAMETER},
                                         FeatureRefusal{"UnknownId", 9, 8, ERROR_INVALID_PARAMETER},
                                         FeatureRefusal{"OutputId", 2, 8, ERROR_INVALID_PARAMETER},
                                         FeatureRefusal{"NoId", 0, 8, ERROR_INVALID_PARAMETER}),
                         [](const testing::TestParamInfo<FeatureRefusal>& row) {
                             return row.param.name;
                         });

TEST_F(FeatureReports, OfTheTestMustFitTheDescriptor) {
    const auto device = Plug();
    EXPECT_THROW(device->SetFeature({}), std::invalid_argument);
    EXPECT_THROW(device->SetFeature({9, 0}), std::invalid_argument);
    EXPECT_THROW(device->SetFeature({4, 0, 0, 0}), std::invalid_argument);
    device->SetFeature({4, 1, 1});
    device->SetFeature({4, 2});
    EXPECT_EQ(device->Feature(4), (Bytes{4, 2, 0}));
}

class DeviceAttributes : public SimulatorTest {};

TEST_F(DeviceAttributes, ComeFromTheDescription) {
    HIDD_ATTRIBUTES attributes{};
    const HANDLE file = Open(*Plug(), 0);
    EXPECT_FALSE(HidD_GetAttributes(file, &attributes));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    attributes.Size = sizeof attributes;
    EXPECT_TRUE(HidD_GetAttributes(file, &attributes));
    EXPECT_EQ(attributes.VendorID, 0x0488);
    EXPECT_EQ(attributes.ProductID, 0x1234);
    EXPECT_EQ(attributes.VersionNumber, 0x0107);
}

TEST_F(DeviceAttributes, AreQueriedOfFilesOnly) {
    HIDD_ATTRIBUTES attributes{sizeof(HIDD_ATTRIBUTES), 0, 0, 0};
    EXPECT_FALSE(HidD_GetAttributes(INVALID_HANDLE_VALUE, &attributes));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

class ProductStrings : public SimulatorTest {};

TEST_F(ProductStrings, NeedRoomInBytesForTheTerminatorToo) {
    const HANDLE file = Open(*Plug(), 0);
    wchar_t text[5] = {L'?', L'?', L'?', L'?', L'?'};
    EXPECT_FALSE(HidD_GetProductString(file, text, 4 * sizeof(wchar_t) - 1));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_USER_BUFFER);
    EXPECT_EQ(text[0], L'?');
    EXPECT_TRUE(HidD_GetProductString(file, text, 4 * sizeof(wchar_t)));
    EXPECT_STREQ(text, L"Pad");
    EXPECT_EQ(text[4], L'?');
}

TEST_F(ProductStrings, MayBeASuccessThatWritesNothing) {
    DeviceDescription description;
    description.reportDescriptor = DescriptorWithIds();
    const auto device = machine_.Plug(description);
    wchar_t text[2] = {L'?', L'?'};
    EXPECT_TRUE(HidD_GetProductString(Open(*device, 0), text, sizeof text));
    EXPECT_EQ(text[0], L'?');
}

class PreparsedDataOfADevice : public SimulatorTest {};

TEST_F(PreparsedDataOfADevice, OutlivesTheHandleAndIsCounted) {
    const std::size_t before = machine_.PreparsedDataInUse();
    const HANDLE file = Open(*Plug(), 0);
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    ASSERT_TRUE(HidD_GetPreparsedData(file, &preparsed));
    Close(file);
    HIDP_CAPS caps{};
    EXPECT_EQ(HidP_GetCaps(preparsed, &caps), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(caps.UsagePage, 0xFF80);
    EXPECT_EQ(machine_.PreparsedDataInUse(), before + 1);
    EXPECT_TRUE(HidD_FreePreparsedData(preparsed));
    EXPECT_EQ(machine_.PreparsedDataInUse(), before);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_F(PreparsedDataOfADevice, FreedTwiceIsMisuse) {
    PHIDP_PREPARSED_DATA preparsed = nullptr;
    ASSERT_TRUE(HidD_GetPreparsedData(Open(*Plug(), 0), &preparsed));
    EXPECT_TRUE(HidD_FreePreparsedData(preparsed));
    EXPECT_FALSE(HidD_FreePreparsedData(preparsed));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_THAT(machine_.Misuse(), ElementsAre("HidD_FreePreparsedData: not in use"));
}

TEST_F(PreparsedDataOfADevice, MayBeNullWhenFreed) {
    EXPECT_FALSE(HidD_FreePreparsedData(nullptr));
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

}  // namespace
}  // namespace simulator_test
