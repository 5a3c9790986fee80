#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

using UsageList = std::vector<USAGE>;

// Input report 1: a value, bits 0x40 to 0x47, then single usages on another page.
ReportDescriptorBuilder Inputs() {
    return Application()
        .ReportId(1)
        .Value(Main::Input, 0x20, 8, 0xFF)
        .Buttons(Main::Input, 0x40, 0x47)
        .UsagePage(kOtherPage)
        .ReportCount(2)
        .Usage(0x05)
        .Usage(0x06)
        .Main(Main::Input, kDataVariable)
        .Padding(Main::Input, 6)
        .ReportId(2)
        .UsagePage(kPage)
        .Buttons(Main::Input, 0x50, 0x57)
        .Padding(Main::Input, 16);
}

TEST(GetUsages, AreAscendingWithinARange) {
    const ParsedDevice device(Inputs());
    const UsagesResult result = device.Get(HidP_Input, {1, 0xFF, 0x85, 0x00});
    EXPECT_EQ(result.status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(result.usages, (UsageList{0x40, 0x42, 0x47}));
}

TEST(GetUsages, AreOfTheRequestedPageOnlyAndInCapabilityOrder) {
    const ParsedDevice device(Inputs());
    EXPECT_EQ(device.Get(HidP_Input, {1, 0x00, 0xFF, 0x03}, kOtherPage).usages,
              (UsageList{0x06, 0x05}));
}

TEST(GetUsages, NothingPressedIsASuccess) {
    const ParsedDevice device(Inputs());
    const UsagesResult result = device.Get(HidP_Input, {1, 0xFF, 0x00, 0x00});
    EXPECT_EQ(result.status, HIDP_STATUS_SUCCESS);
    EXPECT_EQ(result.length, 0u);
}

TEST(GetUsages, AnAbsentPageIsNotFound) {
    const ParsedDevice device(Inputs());
    EXPECT_EQ(device.Get(HidP_Input, {1, 0, 0xFF, 0}, 0x09).status, HIDP_STATUS_USAGE_NOT_FOUND);
    EXPECT_EQ(device.Get(HidP_Input, {1, 0, 0xFF, 0}, 0).status, HIDP_STATUS_USAGE_NOT_FOUND);
}

TEST(GetUsages, ATooSmallListReturnsTheLengthNeeded) {
    const ParsedDevice device(Inputs());
    for (const ULONG room : {0u, 1u, 2u}) {
        const UsagesResult result = device.Get(HidP_Input, {1, 0, 0x07, 0}, kPage, 0, room);
        EXPECT_EQ(result.status, HIDP_STATUS_BUFFER_TOO_SMALL);
        EXPECT_EQ(result.length, 3u);
    }
    EXPECT_EQ(device.Get(HidP_Input, {1, 0, 0x07, 0}, kPage, 0, 3).status, HIDP_STATUS_SUCCESS);
}

TEST(GetUsages, OnlyTheReportThatTheIdNamesIsRead) {
    const ParsedDevice device(Inputs());
    EXPECT_EQ(device.Get(HidP_Input, {1, 0x01, 0x02, 0}).usages, (UsageList{0x41}));
    EXPECT_EQ(device.Get(HidP_Input, {2, 0x01, 0x02, 0}).usages, (UsageList{0x50}));
    EXPECT_EQ(device.Get(HidP_Input, {2, 0, 0, 0}, kOtherPage).status,
              HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
}

TEST(GetUsages, ByteZeroOfZeroMatchesEveryReport) {
    const ParsedDevice device(Inputs());
    EXPECT_EQ(device.Get(HidP_Input, {0, 0x01, 0x02, 0}).usages, (UsageList{0x41, 0x50}));
}

TEST(GetUsages, AnUnknownReportIdIsIncompatible) {
    const ParsedDevice device(Inputs());
    EXPECT_EQ(device.Get(HidP_Input, {9, 0, 0xFF, 0}).status, HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
}

TEST(GetUsages, WithoutReportIdsByteZeroMustBeZero) {
    const ParsedDevice device(Application().Buttons(Main::Input, 0x40, 0x47));
    EXPECT_EQ(device.Get(HidP_Input, {0, 0x01}).usages, (UsageList{0x40}));
    EXPECT_EQ(device.Get(HidP_Input, {1, 0x01}).status, HIDP_STATUS_INCOMPATIBLE_REPORT_ID);
}

TEST(GetUsages, OfALinkCollectionAreThoseOfThatOne) {
    const ParsedDevice device(Application()
                                  .Buttons(Main::Input, 0x40, 0x43)
                                  .Usage(0x22)
                                  .Collection(CollectionKind::Logical)
                                  .Buttons(Main::Input, 0x44, 0x47)
                                  .EndCollection());
    EXPECT_EQ(device.Get(HidP_Input, {0, 0x99}, kPage, 0).usages,
              (UsageList{0x40, 0x43, 0x44, 0x47}));
    EXPECT_EQ(device.Get(HidP_Input, {0, 0x99}, kPage, 1).usages, (UsageList{0x44, 0x47}));
    EXPECT_EQ(device.Get(HidP_Input, {0, 0x99}, kPage, 2).status, HIDP_STATUS_USAGE_NOT_FOUND);
}

TEST(GetUsages, OfAnArrayAreInSlotOrderAndSkipSlotsThatMeanNoUsage) {
    const ParsedDevice device(Slots());
    EXPECT_EQ(device.Get(HidP_Output, {0, 6, 0, 0xFF, 2}).usages, (UsageList{0x06, 0x02}));
}

TEST(GetUsages, AFreeSlotIsNoUsageEvenWhenIndexZeroNamesOne) {
    const ParsedDevice device(Slots(0));
    EXPECT_EQ(device.Get(HidP_Output, {0, 0, 1, 0, 0}).usages, (UsageList{0x02}));
}

TEST(MaxUsageListLength, SumsTheButtonFieldsOfAllReportsAndPages) {
    const ParsedDevice device(Inputs());
    EXPECT_EQ(device.MaxUsages(HidP_Input, 0), 8u + 2u + 8u);
    EXPECT_EQ(device.MaxUsages(HidP_Input, kPage), 8u + 8u);
    EXPECT_EQ(device.MaxUsages(HidP_Input, kOtherPage), 2u);
    EXPECT_EQ(device.MaxUsages(HidP_Input, 0x09), 0u);
    EXPECT_EQ(device.MaxUsages(HidP_Output, 0), 0u);
}

// Every slot can hold any usage of the array.
TEST(MaxUsageListLength, OfAnArrayCountsTheSlotsForEveryCapability) {
    EXPECT_EQ(ParsedDevice(Slots()).MaxUsages(HidP_Output), 4u);
    const ParsedDevice singles(Application()
                                   .LogicalMinimum(1)
                                   .LogicalMaximum(3)
                                   .ReportSize(8)
                                   .ReportCount(4)
                                   .Usage(0x01)
                                   .Usage(0x02)
                                   .Usage(0x03)
                                   .Main(Main::Output, kDataArray));
    EXPECT_EQ(singles.MaxUsages(HidP_Output), 12u);
}

TEST(MaxUsageListLength, OfABadTypeOrPreparsedDataIsZero) {
    const ParsedDevice device(Inputs());
    EXPECT_EQ(device.MaxUsages(static_cast<HIDP_REPORT_TYPE>(3)), 0u);
    EXPECT_EQ(HidP_MaxUsageListLength(HidP_Input, 0, nullptr), 0u);
}

}  // namespace
}  // namespace simulator::hid
