#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

const Bytes kSetBegins{0xA9, 0x01};  // delimiters
const Bytes kSetEnds{0xA9, 0x00};

std::size_t CollectionCount(const Bytes& descriptor) {
    return ParseReportDescriptor(descriptor).size();
}

TEST(TopLevelCollections, AreOneEachWithTheirOwnUsageAndReports) {
    ReportDescriptorBuilder builder = Application(0x0D, 0x05);
    builder.ReportId(1).Value(Main::Input, 0x51, 8, 0xFF).EndCollection();
    builder.UsagePage(kPage).Usage(0x80).Collection(CollectionKind::Application);
    builder.ReportId(2).Value(Main::Output, 0x20, 16, 0xFF).EndCollection();
    ASSERT_EQ(CollectionCount(builder.Bytes()), 2u);

    const HIDP_CAPS first = ParsedDevice(builder.Bytes(), 0).Caps();
    EXPECT_EQ(first.UsagePage, 0x0D);
    EXPECT_EQ(first.Usage, 0x05);
    EXPECT_EQ(first.InputReportByteLength, 2);
    EXPECT_EQ(first.OutputReportByteLength, 0);

    const HIDP_CAPS second = ParsedDevice(builder.Bytes(), 1).Caps();
    EXPECT_EQ(second.UsagePage, kPage);
    EXPECT_EQ(second.Usage, 0x80);
    EXPECT_EQ(second.InputReportByteLength, 0);
    EXPECT_EQ(second.OutputReportByteLength, 3);
}

TEST(TopLevelCollections, OfTheFirstUsageOfADelimitedSet) {
    ReportDescriptorBuilder builder;
    builder.UsagePage(kPage).Raw(kSetBegins).Usage(0x80).Usage(0x81).Raw(kSetEnds);
    const HIDP_CAPS caps = ParsedDevice(builder.Collection(CollectionKind::Application)).Caps();
    EXPECT_EQ(caps.Usage, 0x80);
}

TEST(TopLevelCollections, TakeOverTheGlobalItemsOfThoseBefore) {
    ReportDescriptorBuilder builder = Application();
    builder.ReportId(1).Raw({0x55, 0x0E}).Value(Main::Input, 0x20, 16, 300).EndCollection();
    builder.Usage(0x81).Collection(CollectionKind::Application).ReportId(2);
    builder.Usage(0x21).Main(Main::Input, kDataVariable).EndCollection();
    const HIDP_VALUE_CAPS caps = ParsedDevice(builder.Bytes(), 1).ValueCaps(HidP_Input).at(0);
    EXPECT_EQ(caps.UsagePage, kPage);
    EXPECT_EQ(caps.BitSize, 16);
    EXPECT_EQ(caps.LogicalMax, 300);
    EXPECT_EQ(caps.UnitsExp, 0x0Eu);
}

TEST(TopLevelCollections, MayHaveNoReports) {
    const HIDP_CAPS caps = ParsedDevice(Application()).Caps();
    EXPECT_EQ(caps.InputReportByteLength, 0);
    EXPECT_EQ(caps.OutputReportByteLength, 0);
    EXPECT_EQ(caps.FeatureReportByteLength, 0);
    EXPECT_EQ(caps.NumberLinkCollectionNodes, 1);
}

TEST(ReportIdInForce, IsTheOneAtTheMainItemWhereverTheUsageStood) {
    const ParsedDevice device(
        Application().ReportId(1).ReportSize(8).ReportCount(1).Usage(0x20).ReportId(2).Main(
            Main::Output, kDataVariable));
    EXPECT_EQ(device.ValueCaps(HidP_Output).at(0).ReportID, 2);
}

TEST(ReportIdInForce, OfAReportMayAlternate) {
    const ParsedDevice device(Application()
                                  .ReportId(1)
                                  .Value(Main::Output, 0x20, 8, 0xFF)
                                  .ReportId(2)
                                  .Value(Main::Output, 0x21, 8, 0xFF)
                                  .ReportId(1)
                                  .Value(Main::Output, 0x22, 8, 0xFF));
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 0x0A, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x22, 0x0B, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{1, 0x0A, 0x0B}));
}

TEST(PushAndPop, BringBackEveryGlobalItem) {
    const ParsedDevice device(Application()
                                  .ReportId(1)
                                  .LogicalMinimum(2)
                                  .LogicalMaximum(3)
                                  .Raw({0x35, 0x04, 0x45, 0x05, 0x55, 0x0E, 0x65, 0x11})
                                  .ReportSize(8)
                                  .ReportCount(2)
                                  .Raw({0xA4})  // push
                                  .UsagePage(kOtherPage)
                                  .ReportId(9)
                                  .LogicalMinimum(20)
                                  .LogicalMaximum(30)
                                  .Raw({0x35, 0x40, 0x45, 0x50, 0x55, 0x01, 0x65, 0x22})
                                  .ReportSize(4)
                                  .ReportCount(1)
                                  .Raw({0xB4})  // pop
                                  .Usage(0x20)
                                  .Main(Main::Output, kDataVariable));
    const HIDP_VALUE_CAPS caps = device.ValueCaps(HidP_Output).at(0);
    EXPECT_EQ(caps.UsagePage, kPage);
    EXPECT_EQ(caps.ReportID, 1);
    EXPECT_EQ(caps.LogicalMin, 2);
    EXPECT_EQ(caps.LogicalMax, 3);
    EXPECT_EQ(caps.PhysicalMin, 4);
    EXPECT_EQ(caps.PhysicalMax, 5);
    EXPECT_EQ(caps.UnitsExp, 0x0Eu);
    EXPECT_EQ(caps.Units, 0x11u);
    EXPECT_EQ(caps.BitSize, 8);
    EXPECT_EQ(caps.ReportCount, 2);
}

TEST(ExtendedUsages, CarryTheirPage) {
    const ParsedDevice device(Application()
                                  .ReportSize(8)
                                  .ReportCount(1)
                                  .Raw({0x0B, 0x51, 0x00, 0x0D, 0x00})
                                  .Main(Main::Input, kDataVariable)
                                  .ReportSize(1)
                                  .ReportCount(2)
                                  .Raw({0x1B, 0x01, 0x00, 0x09, 0x00})
                                  .Raw({0x2B, 0x02, 0x00, 0x09, 0x00})
                                  .Main(Main::Input, kDataVariable)
                                  .Padding(Main::Input, 6));
    EXPECT_EQ(device.ValueCaps(HidP_Input).at(0).UsagePage, 0x0D);
    EXPECT_EQ(device.ValueCaps(HidP_Input).at(0).NotRange.Usage, 0x51);
    EXPECT_EQ(device.ButtonCaps(HidP_Input).at(0).UsagePage, 0x09);
    EXPECT_EQ(device.ButtonCaps(HidP_Input).at(0).Range.UsageMin, 0x01);
    EXPECT_EQ(device.ButtonCaps(HidP_Input).at(0).Range.UsageMax, 0x02);
}

TEST(ShortUsages, AreOfThePageInForceAtTheMainItem) {
    const ParsedDevice device(Application()
                                  .ReportSize(8)
                                  .ReportCount(3)
                                  .Usage(0x20)
                                  .UsageMinimum(0x31)
                                  .UsagePage(kOtherPage)
                                  .UsageMaximum(0x32)
                                  .Main(Main::Output, kDataVariable)
                                  .Usage(0x22)
                                  .UsagePage(kPage)
                                  .Collection(CollectionKind::Logical)
                                  .EndCollection());
    const auto caps = device.ValueCaps(HidP_Output);
    ASSERT_EQ(caps.size(), 2u);
    EXPECT_EQ(caps[0].Range.UsageMin, 0x31);
    EXPECT_EQ(caps[0].UsagePage, kOtherPage);
    EXPECT_EQ(caps[1].NotRange.Usage, 0x20);
    EXPECT_EQ(caps[1].UsagePage, kOtherPage);
    EXPECT_EQ(device.Nodes().at(1).LinkUsagePage, kPage);
}

TEST(DelimitedUsages, AreTheFirstOfTheSet) {
    const ParsedDevice device(Application()
                                  .ReportSize(8)
                                  .ReportCount(3)
                                  .Raw(kSetBegins)
                                  .Usage(0x20)
                                  .Usage(0x21)
                                  .Raw(kSetEnds)
                                  .Usage(0x22)
                                  .Raw(kSetBegins)
                                  .UsageMinimum(0x30)
                                  .UsageMaximum(0x30)
                                  .Usage(0x23)
                                  .Raw(kSetEnds)
                                  .Main(Main::Output, kDataVariable));
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 0xA0, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x22, 0xA2, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x30, 0xB0, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 0xA0, 0xA2, 0xB0}));
    EXPECT_EQ(device.SetValue(HidP_Output, 0x21, 1, report), HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x23, 1, report), HIDP_STATUS_USAGE_NOT_FOUND);
}

TEST(ReservedGlobalItems, ArePassedOver) {
    const ParsedDevice device(Application()
                                  .Raw({0xC4, 0xD5, 0x01, 0xE6, 0x01, 0x02})
                                  .Raw({0xF7, 0x01, 0x02, 0x03, 0x04})
                                  .Value(Main::Output, 0x20, 8, 0xFF));
    EXPECT_EQ(device.ValueCaps(HidP_Output).size(), 1u);
}

TEST(LocalItems, CountForOneMainItemOnly) {
    const ParsedDevice device(Application()
                                  .ReportSize(8)
                                  .ReportCount(1)
                                  .Usage(0x20)
                                  .Main(Main::Output, kDataVariable)
                                  .Main(Main::Output, kConstant)
                                  .Usage(0x22)
                                  .Collection(CollectionKind::Logical)
                                  .Main(Main::Output, kConstant | kDataVariable)
                                  .EndCollection());
    EXPECT_EQ(device.ValueCaps(HidP_Output).size(), 1u);
    EXPECT_EQ(device.Caps().OutputReportByteLength, 4);
}

TEST(LocalItems, EndWithTheirCollection) {
    const ParsedDevice device(Application()
                                  .ReportSize(8)
                                  .ReportCount(1)
                                  .Collection(CollectionKind::Logical)
                                  .Usage(0x20)
                                  .EndCollection()
                                  .Main(Main::Output, kConstant | kDataVariable));
    EXPECT_EQ(device.ValueCaps(HidP_Output).size(), 0u);
}

// Items of a string index, a string range, a designator index and a designator range.
const Bytes kOneString{0x79, 0x05};
const Bytes kStringRange{0x89, 0x10, 0x99, 0x13};
const Bytes kOneDesignator{0x39, 0x03};
const Bytes kDesignatorRange{0x49, 0x21, 0x59, 0x24};

TEST(StringsAndDesignators, OfASingleUsageAreOneIndexEach) {
    const ParsedDevice device(
        Application().Raw(kOneString).Raw(kOneDesignator).Value(Main::Output, 0x20, 8, 0xFF));
    const HIDP_VALUE_CAPS caps = device.ValueCaps(HidP_Output).at(0);
    EXPECT_FALSE(caps.IsStringRange);
    EXPECT_FALSE(caps.IsDesignatorRange);
    EXPECT_EQ(caps.NotRange.StringIndex, 0x05);
    EXPECT_EQ(caps.NotRange.DesignatorIndex, 0x03);
}

TEST(StringsAndDesignators, OfARangeMayBeRanges) {
    const ParsedDevice device(Application()
                                  .Raw(kStringRange)
                                  .Raw(kDesignatorRange)
                                  .Buttons(Main::Output, 0x01, 0x04)
                                  .Padding(Main::Output, 4));
    const HIDP_BUTTON_CAPS caps = device.ButtonCaps(HidP_Output).at(0);
    EXPECT_TRUE(caps.IsStringRange);
    EXPECT_TRUE(caps.IsDesignatorRange);
    EXPECT_EQ(caps.Range.StringMin, 0x10);
    EXPECT_EQ(caps.Range.StringMax, 0x13);
    EXPECT_EQ(caps.Range.DesignatorMin, 0x21);
    EXPECT_EQ(caps.Range.DesignatorMax, 0x24);
}

TEST(StringsAndDesignators, BelongToOneMainItemOnly) {
    const ParsedDevice device(Application()
                                  .Raw(kOneString)
                                  .Value(Main::Output, 0x20, 8, 0xFF)
                                  .Value(Main::Output, 0x21, 8, 0xFF));
    EXPECT_EQ(device.ValueCaps(HidP_Output).at(1).NotRange.StringIndex, 0);
}

TEST(StringsAndDesignators, HalfARangeOrNoUsageIsNoError) {
    const ParsedDevice device(Application()
                                  .Raw({0x99, 0x13, 0x59, 0x24, 0x89, 0x10})
                                  .Padding(Main::Output, 8)
                                  .Value(Main::Output, 0x20, 8, 0xFF));
    EXPECT_EQ(device.ValueCaps(HidP_Output).size(), 1u);
}

TEST(LongItems, ArePassedOver) {
    const ParsedDevice device(
        Application().Raw({0xFE, 0x03, 0xF0, 0xC0, 0xC0, 0xC0}).Value(Main::Output, 0x20, 8, 0xFF));
    EXPECT_EQ(device.ValueCaps(HidP_Output).size(), 1u);
}

TEST(LinkCollections, AreNumberedInTheOrderInWhichTheyOpen) {
    const ParsedDevice device(Application()
                                  .Usage(0x22)
                                  .Collection(CollectionKind::Logical)
                                  .UsagePage(kOtherPage)
                                  .Usage(0x23)
                                  .Collection(CollectionKind::Physical)
                                  .Value(Main::Input, 0x30, 8, 0xFF)
                                  .EndCollection()
                                  .Value(Main::Input, 0x31, 8, 0xFF)
                                  .EndCollection()
                                  .Collection(CollectionKind::Logical)
                                  .Value(Main::Input, 0x32, 8, 0xFF)
                                  .EndCollection()
                                  .Value(Main::Input, 0x33, 8, 0xFF));
    EXPECT_EQ(device.Caps().NumberLinkCollectionNodes, 4);
    struct {
        USHORT link;
        USAGE page, usage;
    } const expected[] = {
        {2, kOtherPage, 0x23}, {1, kPage, 0x22}, {3, kOtherPage, 0x00}, {0, kPage, 0x80}};
    const auto caps = device.ValueCaps(HidP_Input);
    ASSERT_EQ(caps.size(), 4u);
    for (std::size_t i = 0; i < caps.size(); ++i) {
        EXPECT_EQ(caps[i].LinkCollection, expected[i].link) << i;
        EXPECT_EQ(caps[i].LinkUsagePage, expected[i].page) << i;
        EXPECT_EQ(caps[i].LinkUsage, expected[i].usage) << i;
    }
}

}  // namespace
}  // namespace simulator::hid
