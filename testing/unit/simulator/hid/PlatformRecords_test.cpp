// The agent copies the platform's records and logs its statuses, so their layouts and numbers must
// be those of 64-bit Windows. This file also compiles with the platform's own headers.
#include <cstddef>

#include <windows.h>
#include <hidpi.h>

#include <gtest/gtest.h>

namespace {

static_assert(sizeof(USAGE) == 2);
static_assert(sizeof(ULONG) == 4);
static_assert(sizeof(NTSTATUS) == 4 && static_cast<NTSTATUS>(-1) < 0);
static_assert(HidP_Input == 0 && HidP_Output == 1 && HidP_Feature == 2);

static_assert(sizeof(HIDP_CAPS) == 64);
static_assert(offsetof(HIDP_CAPS, Usage) == 0);
static_assert(offsetof(HIDP_CAPS, UsagePage) == 2);
static_assert(offsetof(HIDP_CAPS, InputReportByteLength) == 4);
static_assert(offsetof(HIDP_CAPS, OutputReportByteLength) == 6);
static_assert(offsetof(HIDP_CAPS, FeatureReportByteLength) == 8);
static_assert(offsetof(HIDP_CAPS, NumberLinkCollectionNodes) == 44);
static_assert(offsetof(HIDP_CAPS, NumberInputButtonCaps) == 46);
static_assert(offsetof(HIDP_CAPS, NumberInputValueCaps) == 48);
static_assert(offsetof(HIDP_CAPS, NumberInputDataIndices) == 50);
static_assert(offsetof(HIDP_CAPS, NumberOutputButtonCaps) == 52);
static_assert(offsetof(HIDP_CAPS, NumberOutputValueCaps) == 54);
static_assert(offsetof(HIDP_CAPS, NumberOutputDataIndices) == 56);
static_assert(offsetof(HIDP_CAPS, NumberFeatureButtonCaps) == 58);
static_assert(offsetof(HIDP_CAPS, NumberFeatureValueCaps) == 60);
static_assert(offsetof(HIDP_CAPS, NumberFeatureDataIndices) == 62);

template <typename Caps>
constexpr bool HasCommonLayout() {
    return sizeof(Caps) == 72 && offsetof(Caps, UsagePage) == 0 && offsetof(Caps, ReportID) == 2 &&
           offsetof(Caps, IsAlias) == 3 && offsetof(Caps, BitField) == 4 &&
           offsetof(Caps, LinkCollection) == 6 && offsetof(Caps, LinkUsage) == 8 &&
           offsetof(Caps, LinkUsagePage) == 10 && offsetof(Caps, IsRange) == 12 &&
           offsetof(Caps, IsStringRange) == 13 && offsetof(Caps, IsDesignatorRange) == 14 &&
           offsetof(Caps, IsAbsolute) == 15 && offsetof(Caps, Range.UsageMin) == 56 &&
           offsetof(Caps, Range.UsageMax) == 58 && offsetof(Caps, Range.StringMin) == 60 &&
           offsetof(Caps, Range.StringMax) == 62 && offsetof(Caps, Range.DesignatorMin) == 64 &&
           offsetof(Caps, Range.DesignatorMax) == 66 && offsetof(Caps, Range.DataIndexMin) == 68 &&
           offsetof(Caps, Range.DataIndexMax) == 70 && offsetof(Caps, NotRange.Usage) == 56 &&
           offsetof(Caps, NotRange.StringIndex) == 60 &&
           offsetof(Caps, NotRange.DesignatorIndex) == 64 &&
           offsetof(Caps, NotRange.DataIndex) == 68;
}
static_assert(HasCommonLayout<HIDP_BUTTON_CAPS>());
static_assert(HasCommonLayout<HIDP_VALUE_CAPS>());
static_assert(offsetof(HIDP_BUTTON_CAPS, Reserved) == 16);
static_assert(offsetof(HIDP_VALUE_CAPS, HasNull) == 16);
static_assert(offsetof(HIDP_VALUE_CAPS, BitSize) == 18);
static_assert(offsetof(HIDP_VALUE_CAPS, ReportCount) == 20);
static_assert(offsetof(HIDP_VALUE_CAPS, UnitsExp) == 32);
static_assert(offsetof(HIDP_VALUE_CAPS, Units) == 36);
static_assert(offsetof(HIDP_VALUE_CAPS, LogicalMin) == 40);
static_assert(offsetof(HIDP_VALUE_CAPS, LogicalMax) == 44);
static_assert(offsetof(HIDP_VALUE_CAPS, PhysicalMin) == 48);
static_assert(offsetof(HIDP_VALUE_CAPS, PhysicalMax) == 52);

static_assert(sizeof(HIDP_LINK_COLLECTION_NODE) == 24);
static_assert(offsetof(HIDP_LINK_COLLECTION_NODE, LinkUsage) == 0);
static_assert(offsetof(HIDP_LINK_COLLECTION_NODE, LinkUsagePage) == 2);
static_assert(offsetof(HIDP_LINK_COLLECTION_NODE, Parent) == 4);
static_assert(offsetof(HIDP_LINK_COLLECTION_NODE, NumberOfChildren) == 6);
static_assert(offsetof(HIDP_LINK_COLLECTION_NODE, NextSibling) == 8);
static_assert(offsetof(HIDP_LINK_COLLECTION_NODE, FirstChild) == 10);
static_assert(offsetof(HIDP_LINK_COLLECTION_NODE, UserContext) == 16);

struct StatusNumber {
    NTSTATUS status;
    unsigned number;
};
const StatusNumber kStatuses[] = {
    {HIDP_STATUS_SUCCESS, 0x00110000},
    {HIDP_STATUS_NULL, 0x80110001},
    {HIDP_STATUS_INVALID_PREPARSED_DATA, 0xC0110001},
    {HIDP_STATUS_INVALID_REPORT_TYPE, 0xC0110002},
    {HIDP_STATUS_INVALID_REPORT_LENGTH, 0xC0110003},
    {HIDP_STATUS_USAGE_NOT_FOUND, 0xC0110004},
    {HIDP_STATUS_VALUE_OUT_OF_RANGE, 0xC0110005},
    {HIDP_STATUS_BAD_LOG_PHY_VALUES, 0xC0110006},
    {HIDP_STATUS_BUFFER_TOO_SMALL, 0xC0110007},
    {HIDP_STATUS_INTERNAL_ERROR, 0xC0110008},
    {HIDP_STATUS_I8042_TRANS_UNKNOWN, 0xC0110009},
    {HIDP_STATUS_INCOMPATIBLE_REPORT_ID, 0xC011000A},
    {HIDP_STATUS_NOT_VALUE_ARRAY, 0xC011000B},
    {HIDP_STATUS_IS_VALUE_ARRAY, 0xC011000C},
    {HIDP_STATUS_DATA_INDEX_NOT_FOUND, 0xC011000D},
    {HIDP_STATUS_DATA_INDEX_OUT_OF_RANGE, 0xC011000E},
    {HIDP_STATUS_BUTTON_NOT_PRESSED, 0xC011000F},
    {HIDP_STATUS_REPORT_DOES_NOT_EXIST, 0xC0110010},
    {HIDP_STATUS_NOT_IMPLEMENTED, 0xC0110020},
};

TEST(PlatformRecords, StatusesHaveThePlatformsNumbers) {
    for (const StatusNumber& row : kStatuses) {
        EXPECT_EQ(static_cast<unsigned>(row.status), row.number);
    }
}

TEST(PlatformRecords, OnlyFailuresAndWarningsAreNegative) {
    for (const StatusNumber& row : kStatuses) {
        EXPECT_EQ(row.status < 0, row.status != HIDP_STATUS_SUCCESS) << std::hex << row.number;
    }
}

}  // namespace
