#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

using UsageList = std::vector<USAGE>;

// Output report 2: a value byte, bits 0x01 to 0x04, four bits of padding; report 3: bits 0x30 to
// 0x37.
ReportDescriptorBuilder BitFields() {
    return Application()
        .ReportId(2)
        .Value(Main::Output, 0x20, 8, 0xFF)
        .Buttons(Main::Output, 0x01, 0x04)
        .Padding(Main::Output, 4)
        .ReportId(3)
        .Buttons(Main::Output, 0x30, 0x37)
        .Padding(Main::Output, 8);
}

TEST(SetUsagesOfABitField, SetsTheBitsAndPlacesTheReportId) {
    const ParsedDevice device(BitFields());
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.Set(HidP_Output, {0x01, 0x04}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{2, 0x00, 0x09}));
}

TEST(SetUsagesOfABitField, AUsageThatIsSetAlreadyStaysSet) {
    const ParsedDevice device(BitFields());
    Bytes report{2, 0x00, 0x09};
    EXPECT_EQ(device.Set(HidP_Output, {0x04}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{2, 0x00, 0x09}));
}

TEST(SetUsagesOfABitField, StopsAtTheFirstFailureKeepsWhatWasSetAndReturnsTheIndex) {
    const ParsedDevice device(BitFields());
    Bytes report = device.EmptyReport(HidP_Output);
    const UsagesResult result = device.Set(HidP_Output, {0x02, 0x03, 0x99, 0x04}, report);
    EXPECT_EQ(result.status, HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(result.length, 2u);
    EXPECT_EQ(report, (Bytes{2, 0x00, 0x06}));
}

TEST(SetUsagesOfABitField, AUsageOfAnotherReportIsIncompatible) {
    const ParsedDevice device(BitFields());
    Bytes report = device.EmptyReport(HidP_Output);
    const UsagesResult result = device.Set(HidP_Output, {0x30, 0x01}, report);
    EXPECT_EQ(result.status, HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
    EXPECT_EQ(result.length, 1u);
    EXPECT_EQ(report, (Bytes{3, 0x01, 0x00}));
}

TEST(SetUsagesOfABitField, AValueUsageIsNotFound) {
    const ParsedDevice device(BitFields());
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.Set(HidP_Output, {0x20}, report).status, HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(report, device.EmptyReport(HidP_Output));
}

TEST(SetUsagesOfABitField, AnEmptyListChangesNothing) {
    const ParsedDevice device(BitFields());
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.Set(HidP_Output, {}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, device.EmptyReport(HidP_Output));
}

TEST(SetUsagesOfABitField, BitsCrossByteBoundaries) {
    const ParsedDevice device(Application()
                                  .Padding(Main::Output, 6)
                                  .Buttons(Main::Output, 0x10, 0x13)
                                  .Padding(Main::Output, 6));
    Bytes report = device.EmptyReport(HidP_Output);
    device.Set(HidP_Output, {0x11, 0x12}, report);
    EXPECT_EQ(report, (Bytes{0, 0x80, 0x01}));
}

TEST(SetUsagesOfAnArray, FillTheFreeSlotsInOrder) {
    const ParsedDevice device(Slots());
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.Set(HidP_Output, {0x04, 0x01}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 4, 1, 0, 0}));
}

TEST(SetUsagesOfAnArray, WithoutAFreeSlotTheBufferIsTooSmallAndTheSlotsStay) {
    const ParsedDevice device(Slots());
    Bytes report = device.EmptyReport(HidP_Output);
    const UsagesResult result = device.Set(HidP_Output, {1, 2, 3, 4, 5}, report);
    EXPECT_EQ(result.status, HIDP_STATUS_BUFFER_TOO_SMALL);
    EXPECT_EQ(result.length, 4u);
    EXPECT_EQ(report, (Bytes{0, 1, 2, 3, 4}));
}

TEST(SetUsagesOfAnArray, CountIndicesFromTheLogicalMinimum) {
    const ParsedDevice device(Slots(5));
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.Set(HidP_Output, {0x01, 0x03}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 5, 7, 0, 0}));
    EXPECT_EQ(device.Get(HidP_Output, report).usages, (UsageList{0x01, 0x03}));
}

ReportDescriptorBuilder SlotsFromZero(std::uint16_t firstUsage, std::uint16_t lastUsage,
                                      std::uint32_t logicalMaximum) {
    return Application()
        .LogicalMinimum(0)
        .LogicalMaximum(logicalMaximum)
        .ReportSize(8)
        .ReportCount(2)
        .UsageMinimum(firstUsage)
        .UsageMaximum(lastUsage)
        .Main(Main::Output, kDataArray);
}

TEST(SetUsagesOfAnArray, WithOneIndexMoreThanUsagesCountFromOne) {
    const ParsedDevice device(SlotsFromZero(0x08, 0x0F, 8));
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.Set(HidP_Output, {0x08, 0x0F}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 1, 8}));
    EXPECT_EQ(device.Get(HidP_Output, report).usages, (UsageList{0x08, 0x0F}));
}

TEST(SetUsagesOfAnArray, WithUsagesFromZeroHoldTheUsagesThemselves) {
    for (const std::uint32_t logicalMaximum : {0x65u, 0x66u, 0xFFu}) {
        const ParsedDevice device(SlotsFromZero(0x00, 0x65, logicalMaximum));
        Bytes report = device.EmptyReport(HidP_Output);
        EXPECT_EQ(device.Set(HidP_Output, {0x04, 0x65}, report).status, HIDP_STATUS_SUCCESS);
        EXPECT_EQ(report, (Bytes{0, 0x04, 0x65})) << logicalMaximum;
        EXPECT_EQ(device.Get(HidP_Output, report).usages, (UsageList{0x04, 0x65}));
    }
}

// Single usages are listed last-declared first, but their indices count in declaration order.
TEST(SetUsagesOfAnArray, CountIndicesInDeclarationOrder) {
    const ParsedDevice device(Application()
                                  .LogicalMinimum(1)
                                  .LogicalMaximum(5)
                                  .ReportSize(4)
                                  .ReportCount(2)
                                  .Usage(0x40)
                                  .UsageMinimum(0x50)
                                  .UsageMaximum(0x52)
                                  .Usage(0x60)
                                  .Main(Main::Output, kDataArray));
    const std::pair<USAGE, std::uint8_t> indices[] = {
        {0x40, 1}, {0x50, 2}, {0x51, 3}, {0x52, 4}, {0x60, 5}};
    for (const auto& [usage, index] : indices) {
        Bytes report = device.EmptyReport(HidP_Output);
        EXPECT_EQ(device.Set(HidP_Output, {usage}, report).status, HIDP_STATUS_SUCCESS);
        EXPECT_EQ(report, (Bytes{0, index}));
        EXPECT_EQ(device.Get(HidP_Output, report).usages, (UsageList{usage}));
    }
}

// Windows starts a device with such slots.
TEST(SetUsagesOfAnArray, UseTheLowestBitsOfWideSlots) {
    const ParsedDevice device(Application()
                                  .LogicalMinimum(1)
                                  .LogicalMaximum(4)
                                  .ReportSize(40)
                                  .ReportCount(2)
                                  .UsageMinimum(0x01)
                                  .UsageMaximum(0x04)
                                  .Main(Main::Output, kDataArray));
    Bytes report = device.EmptyReport(HidP_Output);
    EXPECT_EQ(device.Set(HidP_Output, {0x02, 0x04}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 2, 0, 0, 0, 0, 4, 0, 0, 0, 0}));
    EXPECT_EQ(device.Get(HidP_Output, report).usages, (UsageList{0x02, 0x04}));
    EXPECT_EQ(device.Unset(HidP_Output, {0x02}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(SetUsagesOfAnArray, PlacesTheReportId) {
    const ParsedDevice device(Application()
                                  .ReportId(7)
                                  .LogicalMinimum(1)
                                  .LogicalMaximum(4)
                                  .ReportSize(8)
                                  .ReportCount(2)
                                  .UsageMinimum(0x01)
                                  .UsageMaximum(0x04)
                                  .Main(Main::Output, kDataArray));
    Bytes report = device.EmptyReport(HidP_Output);
    device.Set(HidP_Output, {0x03}, report);
    EXPECT_EQ(report, (Bytes{7, 3, 0}));
}

TEST(UnsetUsages, ClearTheBitAndKeepTheOthers) {
    const ParsedDevice device(BitFields());
    Bytes report{2, 0xFF, 0xFF};
    EXPECT_EQ(device.Unset(HidP_Output, {0x02}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{2, 0xFF, 0xFD}));
}

TEST(UnsetUsages, AUsageThatIsNotSetIsNotPressed) {
    const ParsedDevice device(BitFields());
    Bytes report{2, 0x00, 0x08};
    EXPECT_EQ(device.Unset(HidP_Output, {0x02}, report).status, HIDP_STATUS_BUTTON_NOT_PRESSED);
    EXPECT_EQ(report, (Bytes{2, 0x00, 0x08}));
}

TEST(UnsetUsages, FreeTheSlotThatHoldsTheUsage) {
    const ParsedDevice device(Slots());
    Bytes report{0, 4, 2, 1, 0};
    EXPECT_EQ(device.Unset(HidP_Output, {0x02}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 4, 1, 0, 0}));
    EXPECT_EQ(device.Unset(HidP_Output, {0x02}, report).status, HIDP_STATUS_BUTTON_NOT_PRESSED);
    EXPECT_EQ(report, (Bytes{0, 4, 1, 0, 0}));
}

TEST(UnsetUsages, MoveTheLaterSlotsUp) {
    const ParsedDevice device(Slots());
    Bytes report{0, 1, 2, 3, 4};
    EXPECT_EQ(device.Unset(HidP_Output, {0x01, 0x03}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 2, 4, 0, 0}));
    EXPECT_EQ(device.Unset(HidP_Output, {0x04}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 2, 0, 0, 0}));
}

TEST(UnsetUsages, AbsentUsagesAndOtherReportsFailAsWhenSetting) {
    const ParsedDevice device(BitFields());
    Bytes report{2, 0x00, 0xFF};
    EXPECT_EQ(device.Unset(HidP_Output, {0x99}, report).status, HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(device.Unset(HidP_Output, {0x20}, report).status, HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(device.Unset(HidP_Output, {0x30}, report).status, HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
}

TEST(UnsetUsages, StopAtTheFirstFailureAndReturnTheIndex) {
    const ParsedDevice device(BitFields());
    Bytes report{2, 0x00, 0x0B};
    const UsagesResult result = device.Unset(HidP_Output, {0x01, 0x03, 0x02}, report);
    EXPECT_EQ(result.status, HIDP_STATUS_BUTTON_NOT_PRESSED);
    EXPECT_EQ(result.length, 1u);
    EXPECT_EQ(report, (Bytes{2, 0x00, 0x0A}));
}

TEST(UnsetUsages, LeaveAnEmptyReportIdAlone) {
    const ParsedDevice device(BitFields());
    Bytes report{0, 0x00, 0x02};
    EXPECT_EQ(device.Unset(HidP_Output, {0x02}, report).status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(report, (Bytes{0, 0x00, 0x00}));
}

}  // namespace
}  // namespace simulator::hid
