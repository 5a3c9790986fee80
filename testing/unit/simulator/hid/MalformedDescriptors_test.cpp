// Devices send descriptors: invalid ones are rejected with the reason.
#include <ostream>

#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

Bytes Closed(ReportDescriptorBuilder builder) { return builder.EndCollection().Bytes(); }

ReportDescriptorBuilder Field(std::uint32_t bits, std::uint32_t count) {
    return Application().ReportSize(bits).ReportCount(count).Usage(0x20);
}

Bytes TwoCollectionsSharing(std::uint8_t reportId) {
    ReportDescriptorBuilder builder;
    for (int i = 0; i < 2; ++i) {
        builder.UsagePage(kPage).Usage(0x80).Collection(CollectionKind::Application);
        if (reportId != 0) builder.ReportId(reportId);
        builder.Value(Main::Input, 0x20, 8, 0xFF).EndCollection();
    }
    return builder.Bytes();
}

Bytes ArrayOfManyUsages() {
    ReportDescriptorBuilder builder = Application();
    builder.ReportSize(4).ReportCount(0xFFFF);
    builder.Usage(0x01).Usage(0x02);
    return Closed(builder.Main(Main::Output, kDataArray));
}

Bytes ManyRanges() {
    ReportDescriptorBuilder builder = Application();
    builder.ReportSize(16).ReportCount(1).UsageMinimum(0).UsageMaximum(0xFFFF);
    return Closed(builder.Main(Main::Output, kDataArray).Value(Main::Output, 0x20, 8, 1));
}

struct Malformed {
    const char* name;
    Bytes descriptor;
    const char* reason;  // part of the error's text
};

void PrintTo(const Malformed& row, std::ostream* out) { *out << row.name; }

const Malformed kMalformed[] = {
    {"AnItemOfOneByteCutShort", {0x06, 0x80, 0xFF, 0x09}, "ONE_BYTE: cut short"},
    {"AnItemOfTwoBytesCutShort", {0x06, 0x80}, "TWO_BYTE: cut short"},
    {"AnItemOfFourBytesCutShort", {0x0B, 0x80, 0xFF, 0x09}, "FOUR_BYTE: cut short"},
    {"ALongItemCutShort", {0x06, 0x80, 0xFF, 0xFE, 0x10, 0xF0}, "cut short"},
    {"APopWithoutAPush", Closed(Application().Raw({0xB4})), "pop without a push"},
    {"MorePopsThanPushes", Closed(Application().Raw({0xA4, 0xB4, 0xB4})), "pop without a push"},
    {"AnEndWithoutACollection", {0xC0}, "UNEXP_END_COL: no collection is open"},
    {"OneEndTooMany", Application().EndCollection().EndCollection().Bytes(),
     "UNEXP_END_COL: no collection is open"},
    {"NoBytes", {}, "NO_DATA"},
    {"NoCollection", Bytes(8, 0x14), "NO_DATA"},
    {"AnOpenCollection", Application().Bytes(), "not closed"},
    {"AnOpenInnerCollection", Closed(Application().Collection(CollectionKind::Logical)),
     "not closed"},
    {"AFieldOutsideEveryCollection",
     ReportDescriptorBuilder().UsagePage(kPage).Value(Main::Input, 0x20, 8, 1).Bytes(),
     "outside every collection"},
    {"ATopLevelCollectionWithoutAUsage",
     {0x06, 0x80, 0xFF, 0xA1, 0x01, 0xC0},
     "TOP_COLLECTION_USAGE"},
    {"ATopLevelCollectionOfTwoUsages",
     {0x06, 0x80, 0xFF, 0x09, 0x80, 0x09, 0x81, 0xA1, 0x01, 0xC0},
     "TOP_COLLECTION_USAGE"},
    {"ATopLevelCollectionOfARange",
     {0x06, 0x80, 0xFF, 0x19, 0x80, 0x29, 0x81, 0xA1, 0x01, 0xC0},
     "TOP_COLLECTION_USAGE"},
    {"AReportIdBeforeTheFirstCollection",
     {0x06, 0x80, 0xFF, 0x85, 0x01, 0x09, 0x80, 0xA1, 0x01, 0xC0},
     "REPORT_ID"},
    {"DataWithoutAUsage",
     Closed(Application().ReportSize(8).ReportCount(1).Main(Main::Input, kDataVariable)),
     "MAIN_ITEM_NO_USAGE"},
    {"AnArrayWithoutAUsage",
     Closed(Application().ReportSize(8).ReportCount(1).Main(Main::Output, kDataArray)),
     "MAIN_ITEM_NO_USAGE"},
    {"AReportOfNineBits", Closed(Application().Buttons(Main::Output, 1, 9)), "BYTE_ALLIGN"},
    {"OneReportOfSeveralThatEndsWithinAByte",
     Closed(Application()
                .ReportId(1)
                .Buttons(Main::Feature, 1, 4)
                .ReportId(2)
                .Buttons(Main::Feature, 1, 8)),
     "BYTE_ALLIGN"},
    {"ReportsOfTwoTypesThatEndOnAByteOnlyTogether",
     Closed(Application().Buttons(Main::Input, 1, 4).Buttons(Main::Output, 1, 4)), "BYTE_ALLIGN"},
    {"ReportIdZero", Closed(Application().ReportId(0)), "report ids"},
    {"AReportIdOfTwoBytes", Closed(Application().Raw({0x86, 0x00, 0x01})), "report ids"},
    {"AnIdAfterReportsWithout",
     Closed(Application().Value(Main::Input, 1, 8, 1).ReportId(1).Value(Main::Output, 2, 8, 1)),
     "with and without an id"},
    {"AReportOfTwoCollections", TwoCollectionsSharing(1), "two top-level collections"},
    {"TwoCollectionsWithoutIds", TwoCollectionsSharing(0), "two top-level collections"},
    {"AUsagePageOfFourBytes", Closed(Application().Raw({0x07, 0x00, 0x00, 0x01, 0x00})), "16 bits"},
    {"AFieldWiderThanIsCounted", Closed(Field(0x10000, 1).Main(Main::Output, kDataVariable)),
     "65535 bits"},
    {"SizeTimesCountOverflowing32Bits",
     Closed(Field(0x10000, 0x10000).Main(Main::Output, kDataVariable)), "65535 bytes"},
    {"TheLargestSizeTimesTheLargestCount",
     Closed(Field(0xFFFFFFFF, 0xFFFFFFFF).Main(Main::Output, kDataVariable)), "65535 bytes"},
    {"HugePadding", Closed(Application().Padding(Main::Output, 0x7FFFFFFF)), "65535 bytes"},
    {"ManyPaddingsThatAddUp",
     Closed(Application().Padding(Main::Output, 500000).Padding(Main::Output, 500000)),
     "65535 bytes"},
    {"MoreFieldsThanAreCounted", Closed(Field(2, 0x10000).Main(Main::Output, kDataVariable)),
     "65535 fields"},
    {"MoreButtonFieldsThanAreCounted", ArrayOfManyUsages(), "button fields"},
    {"MoreDataIndicesThanAreCounted", ManyRanges(), "data indices"},
    {"HalfAUsageRange",
     Closed(Application().ReportSize(8).ReportCount(1).UsageMinimum(1).Main(Main::Output,
                                                                            kDataVariable)),
     "half a usage range"},
    {"HalfAUsageRangeAtACollection",
     Closed(Application().UsageMaximum(1).Collection(CollectionKind::Logical).EndCollection()),
     "half a usage range"},
    {"TwoUsageMinimums", Closed(Application().UsageMinimum(1).UsageMinimum(2)), "of one kind"},
    {"AUsageRangeUpsideDown", Closed(Application().UsageMinimum(5).UsageMaximum(4)),
     "before it starts"},
    {"AUsageRangeOverTwoPages",
     Closed(Application().Raw({0x1B, 0x01, 0x00, 0x09, 0x00}).Raw({0x2B, 0x02, 0x00, 0x0A, 0x00})),
     "two pages"},
    {"ADelimitedSetThatDoesNotEnd", Closed(Application().Raw({0xA9, 0x01}).Usage(1)),
     "does not end"},
    {"ADelimitedSetThatDoesNotBegin", Closed(Application().Raw({0xA9, 0x00})), "out of place"},
    {"ADelimitedSetInAnother", Closed(Application().Raw({0xA9, 0x01, 0xA9, 0x01})), "out of place"},
    {"ADelimiterOfTwo", Closed(Application().Raw({0xA9, 0x02})), "out of place"},
    {"ADelimiterWithinARange", Closed(Application().UsageMinimum(1).Raw({0xA9, 0x01})),
     "half a usage range"},
    {"AReservedItemType", Closed(Application().Raw({0x0C})), "ITEM_UNKNOWN"},
    {"AnUnknownMainItem", Closed(Application().Raw({0xD0})), "ITEM_UNKNOWN"},
    {"AnUnknownLocalItem", Closed(Application().Raw({0x68})), "ITEM_UNKNOWN"},
    {"MoreBytesThanADeviceCanAnnounce", Bytes(0x10000, 0x14), "65535 bytes"},
};

class MalformedDescriptors : public testing::TestWithParam<Malformed> {};

TEST_P(MalformedDescriptors, AreRefusedWithTheReason) {
    try {
        ParseReportDescriptor(GetParam().descriptor);
        FAIL() << "accepted";
    } catch (const DescriptorError& error) {
        EXPECT_NE(std::string(error.what()).find(GetParam().reason), std::string::npos)
            << error.what();
    }
}

INSTANTIATE_TEST_SUITE_P(Each, MalformedDescriptors, testing::ValuesIn(kMalformed),
                         [](const auto& row) { return row.param.name; });

TEST(LargeDescriptors, AreAcceptedUpToTheBounds) {
    EXPECT_EQ(
        ParsedDevice(Application().Padding(Main::Output, 65534 * 8)).Caps().OutputReportByteLength,
        65535);
    EXPECT_EQ(ParsedDevice(Field(8, 65534).Main(Main::Output, kDataVariable))
                  .ValueCaps(HidP_Output)
                  .at(0)
                  .ReportCount,
              65534);
    EXPECT_EQ(
        ParsedDevice(Field(1, 0xFFFF).Main(Main::Input, kDataVariable).Padding(Main::Input, 1))
            .MaxUsages(HidP_Input),
        0xFFFFu);
    EXPECT_EQ(ParsedDevice(Field(0xFFF8, 1).Main(Main::Input, kDataVariable))
                  .ValueCaps(HidP_Input)
                  .at(0)
                  .BitSize,
              0xFFF8);
    const Bytes head = Application().Bytes();
    EXPECT_EQ(ParsedDevice(Application().Raw(Bytes(0xFFFE - head.size(), 0x14))).Caps().Usage,
              0x80);
}

TEST(LargeDescriptors, HundredsOfUsagesInOneItemAreListed) {
    ReportDescriptorBuilder builder = Application();
    builder.ReportSize(8).ReportCount(700);
    for (std::uint16_t usage = 1; usage <= 700; ++usage) builder.Usage(usage);
    const ParsedDevice device(builder.Main(Main::Output, kDataVariable));
    EXPECT_EQ(device.ValueCaps(HidP_Output).size(), 700u);
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.SetValue(HidP_Output, 700, 0xAA, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report.back(), 0xAA);
}

TEST(LargeDescriptors, ThousandsOfNestedCollectionsAreListed) {
    ReportDescriptorBuilder builder = Application();
    for (int i = 0; i < 20000; ++i) builder.Raw({0xA0});
    for (int i = 0; i < 20000; ++i) builder.Raw({0xC0});
    EXPECT_EQ(ParsedDevice(builder).Caps().NumberLinkCollectionNodes, 20001);
}

TEST(LargeDescriptors, AReportCountOfZeroDeclaresNothing) {
    const ParsedDevice device(Field(8, 0).Main(Main::Output, kDataVariable));
    EXPECT_EQ(device.Caps().NumberOutputValueCaps, 0);
}

}  // namespace
}  // namespace simulator::hid
