#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

TEST(ReportLengths, AreThoseOfTheLongestReportOfTheTypeWithItsIdByte) {
    const HIDP_CAPS caps = ParsedDevice(Application()
                                            .ReportId(1)
                                            .Value(Main::Input, 0x20, 8, 0xFF)
                                            .ReportId(2)
                                            .Value(Main::Input, 0x21, 24, 0xFF)
                                            .Value(Main::Feature, 0x22, 16, 0xFF))
                               .Caps();
    EXPECT_EQ(caps.InputReportByteLength, 4);
    EXPECT_EQ(caps.FeatureReportByteLength, 3);
    EXPECT_EQ(caps.OutputReportByteLength, 0);
}

TEST(ReportLengths, CountTheIdByteEvenWithoutIds) {
    EXPECT_EQ(
        ParsedDevice(Application().Value(Main::Input, 0x20, 8, 0xFF)).Caps().InputReportByteLength,
        2);
}

TEST(ReportLengths, OfPaddingAloneCount) {
    EXPECT_EQ(ParsedDevice(Application().Padding(Main::Input, 16)).Caps().InputReportByteLength, 3);
}

// The fields of a report may lie apart: only its end has to be that of a byte.
TEST(ReportLengths, AreWholeBytesAtTheEndOfTheCollection) {
    const HIDP_CAPS caps = ParsedDevice(Application()
                                            .ReportId(1)
                                            .Buttons(Main::Input, 1, 9)
                                            .ReportId(2)
                                            .Buttons(Main::Input, 1, 3)
                                            .Collection(CollectionKind::Logical)
                                            .EndCollection()
                                            .ReportId(1)
                                            .Padding(Main::Input, 7)
                                            .ReportId(2)
                                            .Padding(Main::Input, 5))
                               .Caps();
    EXPECT_EQ(caps.InputReportByteLength, 3);
}

TEST(ReportLengths, OfOneReportAreKnownByTypeAndId) {
    const auto collection = ParseReportDescriptor(Application()
                                                      .ReportId(1)
                                                      .Value(Main::Input, 0x20, 8, 0xFF)
                                                      .ReportId(2)
                                                      .Value(Main::Input, 0x21, 24, 0xFF)
                                                      .Value(Main::Feature, 0x22, 16, 0xFF)
                                                      .EndCollection()
                                                      .Bytes())
                                .at(0);
    EXPECT_EQ(ReportLength(*collection, HidP_Input, 1), 2u);
    EXPECT_EQ(ReportLength(*collection, HidP_Input, 2), 4u);
    EXPECT_EQ(ReportLength(*collection, HidP_Feature, 2), 3u);
    EXPECT_EQ(ReportLength(*collection, HidP_Feature, 1), std::nullopt);
    EXPECT_EQ(ReportLength(*collection, HidP_Input, 0), std::nullopt);
    EXPECT_EQ(ReportIds(*collection, HidP_Input), (Bytes{1, 2}));
    EXPECT_EQ(ReportIds(*collection, HidP_Feature), (Bytes{2}));
    EXPECT_EQ(ReportIds(*collection, HidP_Output), Bytes{});
    EXPECT_TRUE(UsesReportIds(*collection));
}

TEST(ReportLengths, WithoutIdsAreThoseOfIdZero) {
    const auto collection =
        ParseReportDescriptor(
            Application().Value(Main::Feature, 0x20, 8, 0xFF).EndCollection().Bytes())
            .at(0);
    EXPECT_EQ(ReportLength(*collection, HidP_Feature, 0), 2u);
    EXPECT_EQ(ReportIds(*collection, HidP_Feature), (Bytes{0}));
    EXPECT_FALSE(UsesReportIds(*collection));
}

}  // namespace
}  // namespace simulator::hid
