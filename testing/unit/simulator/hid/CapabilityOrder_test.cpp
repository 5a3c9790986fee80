#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

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
    return Application()
        .ReportSize(bits)
        .ReportCount(3)
        .Usage(0x20)
        .Usage(0x21)
        .Usage(0x22)
        .Main(Main::Output, kDataVariable)
        .Padding(Main::Output, bits * 5 % 8);
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

TEST(CapabilityOrder, DataIndicesOfAnArrayRunAsDeclared) {
    const ParsedDevice device(Application()
                                  .Buttons(Main::Output, 0x01, 0x08)
                                  .LogicalMinimum(1)
                                  .LogicalMaximum(5)
                                  .ReportSize(8)
                                  .ReportCount(2)
                                  .Usage(0x20)
                                  .UsageMinimum(0x30)
                                  .UsageMaximum(0x32)
                                  .Usage(0x21)
                                  .Main(Main::Output, kDataArray)
                                  .Value(Main::Output, 0x40, 8, 0xFF));
    const auto buttons = device.ButtonCaps(HidP_Output);
    EXPECT_EQ(Usages(buttons), (UsageList{0x01, 0x21, 0x30, 0x20}));
    EXPECT_EQ(DataIndices(buttons), (IndexList{0, 12, 9, 8}));
    EXPECT_EQ(buttons.at(2).Range.DataIndexMax, 11);
    EXPECT_EQ(DataIndices(device.ValueCaps(HidP_Output)), (IndexList{13}));
}

}  // namespace
}  // namespace simulator::hid
