#include <gtest/gtest.h>

#include "tests/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

template <typename Caps>
std::vector<USAGE> Usages(const std::vector<Caps>& list) {
    std::vector<USAGE> usages;
    for (const Caps& caps : list) {
        usages.push_back(caps.IsRange ? caps.Range.UsageMin : caps.NotRange.Usage);
    }
    return usages;
}

template <typename Caps>
std::vector<USHORT> DataIndices(const std::vector<Caps>& list) {
    std::vector<USHORT> indices;
    for (const Caps& caps : list) {
        indices.push_back(caps.IsRange ? caps.Range.DataIndexMin : caps.NotRange.DataIndex);
    }
    return indices;
}

using UsageList = std::vector<USAGE>;
using IndexList = std::vector<USHORT>;

TEST(CapabilityOrder, MainItemsAreListedAsDeclared) {
    const ParsedDevice device(Application()
                                  .Value(Main::Output, 0x21, 8, 0xFF)
                                  .Value(Main::Output, 0x20, 8, 0xFF)
                                  .Value(Main::Output, 0x22, 8, 0xFF));
    EXPECT_EQ(Usages(device.ValueCaps(HidP_Output)), (UsageList{0x21, 0x20, 0x22}));
    EXPECT_EQ(DataIndices(device.ValueCaps(HidP_Output)), (IndexList{0, 1, 2}));
}

ReportDescriptorBuilder SinglesInOneItem(std::uint32_t bits) {
    return Application().ReportSize(bits).ReportCount(3).Usage(0x20).Usage(0x21).Usage(0x22).Main(
        Main::Output, kDataVariable);
}

TEST(CapabilityOrder, SingleUsagesOfOneItemAreListedLastDeclaredFirst) {
    const ParsedDevice values(SinglesInOneItem(8));
    EXPECT_EQ(Usages(values.ValueCaps(HidP_Output)), (UsageList{0x22, 0x21, 0x20}));
    EXPECT_EQ(DataIndices(values.ValueCaps(HidP_Output)), (IndexList{0, 1, 2}));
    const ParsedDevice buttons(SinglesInOneItem(1));
    EXPECT_EQ(Usages(buttons.ButtonCaps(HidP_Output)), (UsageList{0x22, 0x21, 0x20}));
    EXPECT_EQ(DataIndices(buttons.ButtonCaps(HidP_Output)), (IndexList{0, 1, 2}));
}

TEST(CapabilityOrder, FieldsAreLaidOutAsDeclared) {
    const ParsedDevice values(SinglesInOneItem(8));
    Bytes report = values.EmptyReport(HidP_Output);
    values.SetValue(HidP_Output, 0x20, 0x0A, report);
    values.SetValue(HidP_Output, 0x22, 0x0C, report);
    EXPECT_EQ(report, (Bytes{0, 0x0A, 0x00, 0x0C}));
    const ParsedDevice buttons(SinglesInOneItem(1));
    report = buttons.EmptyReport(HidP_Output);
    buttons.Set(HidP_Output, {0x20}, report);
    EXPECT_EQ(report, (Bytes{0, 0x01}));
}

TEST(CapabilityOrder, DataIndicesRunThroughButtonsAndValuesOfTheType) {
    const ParsedDevice device(Application()
                                  .Buttons(Main::Input, 0x40, 0x47)
                                  .Value(Main::Input, 0x48, 8, 0xFF)
                                  .Buttons(Main::Input, 0x01, 0x03)
                                  .Padding(Main::Input, 5)
                                  .Value(Main::Feature, 0x62, 8, 0xFF));
    const auto buttons = device.ButtonCaps(HidP_Input);
    EXPECT_EQ(DataIndices(buttons), (IndexList{0, 9}));
    EXPECT_EQ(buttons.at(0).Range.DataIndexMax, 7);
    EXPECT_EQ(buttons.at(1).Range.DataIndexMax, 11);
    EXPECT_EQ(DataIndices(device.ValueCaps(HidP_Input)), (IndexList{8}));
    EXPECT_EQ(DataIndices(device.ValueCaps(HidP_Feature)), (IndexList{0}));
    EXPECT_EQ(device.Caps().NumberInputDataIndices, 12);
    EXPECT_EQ(device.Caps().NumberFeatureDataIndices, 1);
}

TEST(CapabilityOrder, TheLastOfTooFewUsagesTakesTheRest) {
    const ParsedDevice device(Application()
                                  .ReportSize(8)
                                  .ReportCount(4)
                                  .Usage(0x20)
                                  .Usage(0x21)
                                  .Main(Main::Output, kDataVariable)
                                  .Value(Main::Output, 0x30, 8, 0xFF));
    const auto caps = device.ValueCaps(HidP_Output);
    EXPECT_EQ(Usages(caps), (UsageList{0x21, 0x20, 0x30}));
    EXPECT_EQ(caps.at(0).ReportCount, 3);
    EXPECT_EQ(caps.at(1).ReportCount, 1);
    Bytes report = device.EmptyReport(HidP_Output);
    device.SetValue(HidP_Output, 0x21, 0xAA, report);
    device.SetValue(HidP_Output, 0x30, 0xBB, report);
    EXPECT_EQ(report, (Bytes{0, 0, 0xAA, 0, 0, 0xBB}));
}

TEST(CapabilityOrder, TheLastButtonOfTooFewTakesTheRest) {
    const ParsedDevice device(
        Application().ReportSize(1).ReportCount(8).UsageMinimum(0x01).UsageMaximum(0x03).Main(
            Main::Input, kDataVariable));
    EXPECT_EQ(device.MaxUsages(HidP_Input), 8u);
    EXPECT_EQ(device.Get(HidP_Input, {0, 0x81}).usages, (UsageList{0x01, 0x03}));
}

TEST(CapabilityOrder, UsagesBeyondTheReportCountAreDropped) {
    const ParsedDevice device(Application()
                                  .ReportSize(8)
                                  .ReportCount(3)
                                  .Usage(0x20)
                                  .UsageMinimum(0x30)
                                  .UsageMaximum(0x37)
                                  .Usage(0x40)
                                  .Main(Main::Output, kDataVariable));
    const auto caps = device.ValueCaps(HidP_Output);
    EXPECT_EQ(Usages(caps), (UsageList{0x30, 0x20}));
    EXPECT_EQ(caps.at(0).Range.UsageMax, 0x31);
    EXPECT_EQ(device.Caps().NumberOutputDataIndices, 3);
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x32, 1, report), HIDP_STATUS_USAGE_NOT_FOUND);
}

TEST(CapabilityOrder, UsagesOfAnArrayAreNotBoundByItsSlots) {
    const ParsedDevice device(Application()
                                  .LogicalMinimum(1)
                                  .LogicalMaximum(3)
                                  .ReportSize(8)
                                  .ReportCount(1)
                                  .Usage(0x20)
                                  .Usage(0x21)
                                  .Usage(0x22)
                                  .Main(Main::Output, kDataArray));
    EXPECT_EQ(Usages(device.ButtonCaps(HidP_Output)), (UsageList{0x22, 0x21, 0x20}));
}

TEST(Ranges, AreOneCapabilityWithTheFlag) {
    const ParsedDevice device(Application().Buttons(Main::Input, 0x40, 0x47));
    const auto caps = device.ButtonCaps(HidP_Input);
    ASSERT_EQ(caps.size(), 1u);
    EXPECT_TRUE(caps[0].IsRange);
    EXPECT_EQ(caps[0].Range.UsageMin, 0x40);
    EXPECT_EQ(caps[0].Range.UsageMax, 0x47);
}

TEST(Ranges, OfOneUsageKeepTheFlag) {
    const auto caps =
        ParsedDevice(Application().Buttons(Main::Output, 0x30, 0x30)).ButtonCaps(HidP_Output);
    ASSERT_EQ(caps.size(), 1u);
    EXPECT_TRUE(caps[0].IsRange);
    EXPECT_EQ(caps[0].Range.UsageMin, 0x30);
    EXPECT_EQ(caps[0].Range.UsageMax, 0x30);
}

TEST(Ranges, ASingleUsageIsNone) {
    const auto caps =
        ParsedDevice(Application().Value(Main::Output, 0x20, 8, 0xFF)).ValueCaps(HidP_Output);
    ASSERT_EQ(caps.size(), 1u);
    EXPECT_FALSE(caps[0].IsRange);
    EXPECT_EQ(caps[0].NotRange.Usage, 0x20);
}

TEST(Ranges, MayGiveTheMaximumFirst) {
    const auto caps =
        ParsedDevice(
            Application().ReportSize(1).ReportCount(3).UsageMaximum(0x43).UsageMinimum(0x41).Main(
                Main::Input, kDataVariable))
            .ButtonCaps(HidP_Input);
    ASSERT_EQ(caps.size(), 1u);
    EXPECT_EQ(caps[0].Range.UsageMin, 0x41);
    EXPECT_EQ(caps[0].Range.UsageMax, 0x43);
}

struct Kind {
    const char* name;
    std::uint32_t bits;
    std::uint8_t flags;
    bool hasUsage;
    std::size_t buttons, values;
};
const Kind kKinds[] = {
    {"one-bit variable", 1, kDataVariable, true, 1, 0},
    {"two-bit variable", 2, kDataVariable, true, 0, 1},
    {"one-bit array", 1, kDataArray, true, 1, 0},
    {"byte array", 8, kDataArray, true, 1, 0},
    {"constant variable with a usage", 8, kConstant | kDataVariable, true, 0, 1},
    {"constant bit with a usage", 1, kConstant | kDataVariable, true, 1, 0},
    {"constant without a usage", 8, kConstant, false, 0, 0},
    {"variable without a usage", 8, kDataVariable, false, 0, 0},
    {"array without a usage", 8, kDataArray, false, 0, 0},
};

TEST(ButtonsAndValues, OneBitVariablesAndArraysAreButtonsItemsWithoutUsageArePadding) {
    for (const Kind& kind : kKinds) {
        ReportDescriptorBuilder builder = Application();
        builder.ReportSize(kind.bits).ReportCount(1);
        if (kind.hasUsage) builder.Usage(0x20);
        const ParsedDevice device(builder.Main(Main::Output, kind.flags));
        EXPECT_EQ(device.ButtonCaps(HidP_Output).size(), kind.buttons) << kind.name;
        EXPECT_EQ(device.ValueCaps(HidP_Output).size(), kind.values) << kind.name;
        EXPECT_EQ(device.Caps().NumberOutputButtonCaps, kind.buttons) << kind.name;
        EXPECT_EQ(device.Caps().NumberOutputValueCaps, kind.values) << kind.name;
        EXPECT_EQ(device.Caps().OutputReportByteLength, 2) << kind.name;
    }
}

TEST(ValueCaps, TellTheField) {
    const auto caps = ParsedDevice(Application()
                                       .ReportId(5)
                                       .Raw({0x16, 0x00, 0x80, 0x26, 0xFF, 0x7F})
                                       .Raw({0x35, 0x9C, 0x45, 0x64, 0x55, 0x0E, 0x65, 0x11})
                                       .ReportSize(16)
                                       .ReportCount(1)
                                       .Usage(0x30)
                                       .Main(Main::Input, 0x46))  // variable, relative, null state
                          .ValueCaps(HidP_Input)
                          .at(0);
    EXPECT_EQ(caps.UsagePage, kPage);
    EXPECT_EQ(caps.ReportID, 5);
    EXPECT_EQ(caps.BitField, 0x46);
    EXPECT_FALSE(caps.IsAlias);
    EXPECT_FALSE(caps.IsAbsolute);
    EXPECT_TRUE(caps.HasNull);
    EXPECT_EQ(caps.BitSize, 16);
    EXPECT_EQ(caps.ReportCount, 1);
    EXPECT_EQ(caps.LogicalMin, -32768);
    EXPECT_EQ(caps.LogicalMax, 32767);
    EXPECT_EQ(caps.PhysicalMin, -100);
    EXPECT_EQ(caps.PhysicalMax, 100);
    EXPECT_EQ(caps.UnitsExp, 0x0Eu);
    EXPECT_EQ(caps.Units, 0x11u);
}

TEST(ValueCaps, WithoutTheFlagsAreAbsoluteAndHaveNoNull) {
    const auto caps =
        ParsedDevice(Application().Value(Main::Input, 0x30, 8, 0xFF)).ValueCaps(HidP_Input).at(0);
    EXPECT_TRUE(caps.IsAbsolute);
    EXPECT_FALSE(caps.HasNull);
    EXPECT_EQ(caps.LogicalMax, 255);
}

TEST(ValueCaps, OfARangeCountTheUsagesItDescribes) {
    const auto caps =
        ParsedDevice(
            Application().ReportSize(8).ReportCount(3).UsageMinimum(0x40).UsageMaximum(0x42).Main(
                Main::Output, kDataVariable))
            .ValueCaps(HidP_Output);
    ASSERT_EQ(caps.size(), 1u);
    EXPECT_TRUE(caps[0].IsRange);
    EXPECT_EQ(caps[0].ReportCount, 3);
}

// Both listing calls keep the same rules about their 16-bit length.
template <typename Record>
struct Listing {
    NTSTATUS (*call)(HIDP_REPORT_TYPE, Record*, PUSHORT, PHIDP_PREPARSED_DATA);

    void KeepsTheLengthRules(const ParsedDevice& device) const {
        std::vector<Record> list(4);
        USHORT length = 4;
        EXPECT_EQ(call(HidP_Output, list.data(), &length, device.Preparsed()), HIDP_STATUS_SUCCESS);
        EXPECT_EQ(length, 2);

        list[0].UsagePage = 0x1234;
        length = 1;
        EXPECT_EQ(call(HidP_Output, list.data(), &length, device.Preparsed()),
                  HIDP_STATUS_BUFFER_TOO_SMALL);
        EXPECT_EQ(length, 2);
        EXPECT_EQ(list[0].UsagePage, 0x1234);

        length = 4;
        EXPECT_EQ(call(HidP_Feature, list.data(), &length, device.Preparsed()),
                  HIDP_STATUS_USAGE_NOT_FOUND);
        EXPECT_EQ(length, 0);

        const auto noType = static_cast<HIDP_REPORT_TYPE>(3);
        EXPECT_EQ(call(noType, list.data(), &length, device.Preparsed()),
                  HIDP_STATUS_INVALID_REPORT_TYPE);
        EXPECT_EQ(call(noType, list.data(), &length, nullptr), HIDP_STATUS_INVALID_PREPARSED_DATA);
    }
};

TEST(CapabilityLists, TakeAndTellTheirLength) {
    const ParsedDevice device(Application()
                                  .Value(Main::Output, 0x20, 8, 0xFF)
                                  .Value(Main::Output, 0x21, 8, 0xFF)
                                  .Buttons(Main::Output, 0x01, 0x04)
                                  .Buttons(Main::Output, 0x05, 0x08));
    Listing<HIDP_VALUE_CAPS>{HidP_GetValueCaps}.KeepsTheLengthRules(device);
    Listing<HIDP_BUTTON_CAPS>{HidP_GetButtonCaps}.KeepsTheLengthRules(device);
}

TEST(CapabilityLists, GetCapsNeedsPreparsedData) {
    HIDP_CAPS caps{};
    EXPECT_EQ(HidP_GetCaps(nullptr, &caps), HIDP_STATUS_INVALID_PREPARSED_DATA);
}

}  // namespace
}  // namespace simulator::hid
