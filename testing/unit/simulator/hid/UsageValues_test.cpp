#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

// Output report 2: a byte, 12 bits, 4 bits, an array of three bytes; report 3: one byte.
// Feature report 4: 16 bits.
ReportDescriptorBuilder TwoReports() {
    return Application()
        .ReportId(2)
        .Value(Main::Output, 0x20, 8, 0xFF)
        .Value(Main::Output, 0x21, 12, 0xFFF)
        .Value(Main::Output, 0x22, 4, 0x0F)
        .ReportSize(8)
        .ReportCount(3)
        .Usage(0x23)
        .Main(Main::Output, kDataVariable)
        .Buttons(Main::Output, 0x01, 0x04)
        .Padding(Main::Output, 4)
        .ReportId(3)
        .Value(Main::Output, 0x30, 8, 0xFF)
        .ReportId(4)
        .Value(Main::Feature, 0x62, 16, 2000);
}

TEST(UsageValues, SettingPlacesTheReportIdIntoAnEmptyReport) {
    const ParsedDevice device(TwoReports());
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 0x03, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{2, 0x03, 0, 0, 0, 0, 0, 0}));
}

TEST(UsageValues, AUsageOfAnotherReportIsIncompatibleOnceTheIdIsThere) {
    const ParsedDevice device(TwoReports());
    Bytes report = device.EmptyReport(HidP_Output);
    device.SetValue(HidP_Output, 0x20, 0x03, report);
    const Bytes before = report;
    EXPECT_EQ(device.SetValue(HidP_Output, 0x30, 1, report), HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
    EXPECT_EQ(report, before);
    ULONG value = 7;
    EXPECT_EQ(device.GetValue(HidP_Output, 0x30, value, report),
              HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
    EXPECT_EQ(value, 7u);
}

TEST(UsageValues, AnUnknownReportIdIsIncompatible) {
    const ParsedDevice device(TwoReports());
    Bytes report = device.EmptyReport(HidP_Output);
    report[0] = 9;
    ULONG value = 7;
    EXPECT_EQ(device.GetValue(HidP_Output, 0x20, value, report),
              HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 1, report), HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
}

TEST(UsageValues, ReadingMatchesAnyReportWhileTheIdIsZero) {
    const ParsedDevice device(TwoReports());
    Bytes report = device.EmptyReport(HidP_Output);
    report[1] = 0x5A;
    EXPECT_EQ(device.Value(HidP_Output, 0x20, report), 0x5Au);
    EXPECT_EQ(device.Value(HidP_Output, 0x30, report), 0x5Au);
}

TEST(UsageValues, WithoutReportIdsByteZeroStaysZeroAndMustBeZero) {
    const ParsedDevice device(Application().Value(Main::Output, 0x20, 8, 0xFF));
    Bytes report{0, 0};
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 0x44, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 0x44}));
    report[0] = 1;
    ULONG value = 7;
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 1, report), HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
    EXPECT_EQ(device.GetValue(HidP_Output, 0x20, value, report),
              HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
}

TEST(UsageValues, AnAbsentUsageIsNotFoundAndLeavesValueAndReportAlone) {
    const ParsedDevice device(TwoReports());
    Bytes report = device.EmptyReport(HidP_Output);
    ULONG value = 7;
    EXPECT_EQ(device.GetValue(HidP_Output, 0x99, value, report), HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(value, 7u);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x99, 1, report), HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 1, report, kOtherPage),
              HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(report, device.EmptyReport(HidP_Output));
}

TEST(UsageValues, AUsageOfAnotherReportTypeIsNotFound) {
    const ParsedDevice device(TwoReports());
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x62, 1, report), HIDP_STATUS_USAGE_NOT_FOUND);
}

TEST(UsageValues, AButtonUsageIsNoValue) {
    const ParsedDevice device(TwoReports());
    Bytes report = device.EmptyReport(HidP_Output);
    ULONG value = 7;
    EXPECT_EQ(device.SetValue(HidP_Output, 0x01, 1, report), HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(device.GetValue(HidP_Output, 0x01, value, report), HIDP_STATUS_USAGE_NOT_FOUND);
}

TEST(UsageValues, AreTruncatedToTheirFieldAndKeepTheNeighbours) {
    const ParsedDevice device(TwoReports());
    Bytes report{2, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00};
    EXPECT_EQ(device.SetValue(HidP_Output, 0x21, 0xFFFFFABC, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{2, 0x00, 0xBC, 0x0A, 0x00, 0x00, 0x00, 0x00}));
    report = {2, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
    EXPECT_EQ(device.SetValue(HidP_Output, 0x21, 0, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{2, 0xFF, 0x00, 0xF0, 0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST(UsageValues, OutsideTheLogicalRangeAreSetAllTheSame) {
    const ParsedDevice device(TwoReports());
    Bytes report = device.EmptyReport(HidP_Feature);
    EXPECT_EQ(device.SetValue(HidP_Feature, 0x62, 60000, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(device.Value(HidP_Feature, 0x62, report), 60000u);
}

TEST(UsageValues, AreNotSignExtended) {
    const ParsedDevice device(Application()
                                  .Raw({0x15, 0x81, 0x25, 0x7F})  // logical -127 to 127
                                  .ReportSize(8)
                                  .ReportCount(1)
                                  .Usage(0x30)
                                  .Main(Main::Input, kDataVariable));
    EXPECT_EQ(device.Value(HidP_Input, 0x30, {0, 0xFF}), 0xFFu);
}

TEST(UsageValues, OfAValueArrayMeanItsFirstElement) {
    const ParsedDevice device(TwoReports());
    Bytes report{2, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0};
    EXPECT_EQ(device.SetValue(HidP_Output, 0x23, 0x11, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{2, 0, 0, 0, 0x11, 0xFF, 0xFF, 0}));
    EXPECT_EQ(device.Value(HidP_Output, 0x23, report), 0x11u);
}

TEST(UsageValues, OfARangeTakeOneFieldEach) {
    const ParsedDevice device(
        Application().ReportSize(8).ReportCount(3).UsageMinimum(0x40).UsageMaximum(0x42).Main(
            Main::Output, kDataVariable));
    Bytes report = device.EmptyReport(HidP_Output);
    for (USAGE usage = 0x40; usage <= 0x42; ++usage)
        device.SetValue(HidP_Output, usage, usage, report);
    EXPECT_EQ(report, (Bytes{0, 0x40, 0x41, 0x42}));
    EXPECT_EQ(device.Value(HidP_Output, 0x41, report), 0x41u);
}

// Windows starts a device with such fields.
TEST(UsageValues, WiderThanAValueCannotBeReadOrSet) {
    const ParsedDevice device(
        Application().Value(Main::Output, 0x20, 33, 1).Value(Main::Output, 0x21, 7, 0x7F));
    EXPECT_EQ(device.ValueCaps(HidP_Output).at(0).BitSize, 33);
    Bytes report{0, 0x11, 0x22, 0x33, 0x44, 0x55};
    const Bytes before = report;
    ULONG value = 7;
    EXPECT_EQ(device.GetValue(HidP_Output, 0x20, value, report), HIDP_STATUS_BUFFER_TOO_SMALL);
    EXPECT_EQ(value, 7u);
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 1, report), HIDP_STATUS_BUFFER_TOO_SMALL);
    EXPECT_EQ(report, before);
    EXPECT_EQ(device.Value(HidP_Output, 0x21, report), 0x2Au);
}

TEST(UsageValues, OfAFieldOfNoBitsAreZero) {
    const ParsedDevice device(
        Application().Value(Main::Output, 0x20, 0, 1).Value(Main::Output, 0x21, 8, 0xFF));
    ASSERT_EQ(device.ValueCaps(HidP_Output).size(), 2u);
    EXPECT_EQ(device.ValueCaps(HidP_Output).at(0).BitSize, 0);
    Bytes report{0, 0xFF};
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 1, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(device.Value(HidP_Output, 0x20, report), 0u);
    EXPECT_EQ(report, (Bytes{0, 0xFF}));
}

TEST(UsageValues, OfEveryWidthLieAtTheirPlace) {
    for (std::uint32_t bits = 2; bits <= 32; ++bits) {
        const ParsedDevice device(Application()
                                      .Padding(Main::Output, 5)
                                      .Value(Main::Output, 0x20, bits, 1)
                                      .Value(Main::Output, 0x21, 3, 7)
                                      .Padding(Main::Output, (64 - 8 - bits) % 8 + 8));
        Bytes report = device.EmptyReport(HidP_Output);
        const ULONG all = bits == 32 ? ~0u : (1u << bits) - 1;
        EXPECT_EQ(device.SetValue(HidP_Output, 0x20, ~0u, report), HIDP_STATUS_SUCCESS) << bits;
        EXPECT_EQ(device.Value(HidP_Output, 0x20, report), all) << bits;
        EXPECT_EQ(device.Value(HidP_Output, 0x21, report), 0u) << bits;
        EXPECT_EQ(report[1] & 0x1F, 0) << bits;
    }
}

// Link collections 1 and 2 hold the same usage.
ReportDescriptorBuilder TwoFingers() {
    ReportDescriptorBuilder builder = Application();
    for (int finger = 0; finger < 2; ++finger) {
        builder.Usage(0x22)
            .Collection(CollectionKind::Logical)
            .Value(Main::Input, 0x51, 8, 0xFF)
            .EndCollection();
    }
    return builder;
}

TEST(UsageValues, LinkCollectionZeroMeansTheFirstMatchAnywhere) {
    const ParsedDevice device(TwoFingers());
    EXPECT_EQ(device.Value(HidP_Input, 0x51, {0, 0x0A, 0x0B}), 0x0Au);
}

TEST(UsageValues, AnotherLinkCollectionMeansExactlyThatOne) {
    const ParsedDevice device(TwoFingers());
    EXPECT_EQ(device.Value(HidP_Input, 0x51, {0, 0x0A, 0x0B}, kPage, 1), 0x0Au);
    EXPECT_EQ(device.Value(HidP_Input, 0x51, {0, 0x0A, 0x0B}, kPage, 2), 0x0Bu);
    ULONG value = 7;
    EXPECT_EQ(device.GetValue(HidP_Input, 0x51, value, {0, 0x0A, 0x0B}, kPage, 3),
              HIDP_STATUS_USAGE_NOT_FOUND);
}

TEST(UsageValues, TheSameUsageInTwoReportsIsFoundByTheReportId) {
    const ParsedDevice device(Application()
                                  .ReportId(1)
                                  .Value(Main::Output, 0x20, 8, 0xFF)
                                  .ReportId(2)
                                  .Padding(Main::Output, 8)
                                  .Value(Main::Output, 0x20, 8, 0xFF));
    Bytes report{2, 0, 0};
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 0x33, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{2, 0, 0x33}));
    report = {0, 0, 0};
    EXPECT_EQ(device.SetValue(HidP_Output, 0x20, 0x33, report), HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{1, 0x33, 0}));
}

}  // namespace
}  // namespace simulator::hid
