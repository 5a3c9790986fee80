// Every call with a report checks its arguments in the same order before it searches for a usage.
#include <functional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "testing/unit/simulator/hid/ParsedDevice.h"

namespace simulator::hid {
namespace {

struct ReportCall {
    std::string name;
    std::function<NTSTATUS(HIDP_REPORT_TYPE, PHIDP_PREPARSED_DATA, PCHAR, ULONG)> call;
};

void PrintTo(const ReportCall& row, std::ostream* out) { *out << row.name; }

constexpr USAGE kAbsentUsage = 0x99;

template <typename Function>
ReportCall OnUsages(const char* name, Function function) {
    return {name, [function](HIDP_REPORT_TYPE type, PHIDP_PREPARSED_DATA preparsed, PCHAR report,
                             ULONG length) {
                USAGE list[] = {kAbsentUsage};
                ULONG count = 1;
                return function(type, kOtherPage, 0, list, &count, preparsed, report, length);
            }};
}

const ReportCall kCalls[] = {
    OnUsages("HidP_GetUsages", HidP_GetUsages),
    OnUsages("HidP_SetUsages", HidP_SetUsages),
    OnUsages("HidP_UnsetUsages", HidP_UnsetUsages),
    {"HidP_GetUsageValue",
     [](HIDP_REPORT_TYPE type, PHIDP_PREPARSED_DATA preparsed, PCHAR report, ULONG length) {
         ULONG value = 0;
         return HidP_GetUsageValue(type, kPage, 0, kAbsentUsage, &value, preparsed, report, length);
     }},
    {"HidP_SetUsageValue",
     [](HIDP_REPORT_TYPE type, PHIDP_PREPARSED_DATA preparsed, PCHAR report, ULONG length) {
         return HidP_SetUsageValue(type, kPage, 0, kAbsentUsage, 1, preparsed, report, length);
     }},
};

const auto kNoType = static_cast<HIDP_REPORT_TYPE>(3);

class ReportChecks : public testing::TestWithParam<ReportCall> {
 protected:
    NTSTATUS Call(HIDP_REPORT_TYPE type, PHIDP_PREPARSED_DATA preparsed, ULONG length) {
        char report[16] = {};
        return GetParam().call(type, preparsed, report, length);
    }

    // The output report is 3 bytes long with its id byte; there is no input report.
    ParsedDevice device_{
        Application().Value(Main::Output, 0x20, 8, 0xFF).Buttons(Main::Output, 0x01, 0x08)};
};

TEST_P(ReportChecks, LengthZeroComesFirst) {
    EXPECT_EQ(Call(kNoType, nullptr, 0), HIDP_STATUS_INVALID_REPORT_LENGTH);
}

TEST_P(ReportChecks, PreparsedDataComesBeforeTheReportType) {
    EXPECT_EQ(Call(kNoType, nullptr, 1), HIDP_STATUS_INVALID_PREPARSED_DATA);
}

TEST_P(ReportChecks, TheReportTypeComesBeforeTheExactLength) {
    EXPECT_EQ(Call(kNoType, device_.Preparsed(), 1), HIDP_STATUS_INVALID_REPORT_TYPE);
}

TEST_P(ReportChecks, TheExactLengthComesBeforeTheUsage) {
    EXPECT_EQ(Call(HidP_Output, device_.Preparsed(), 2), HIDP_STATUS_INVALID_REPORT_LENGTH);
    EXPECT_EQ(Call(HidP_Output, device_.Preparsed(), 4), HIDP_STATUS_INVALID_REPORT_LENGTH);
    EXPECT_EQ(Call(HidP_Output, device_.Preparsed(), 3), HIDP_STATUS_USAGE_NOT_FOUND);
}

TEST_P(ReportChecks, NoLengthFitsATypeWithoutReports) {
    EXPECT_EQ(Call(HidP_Input, device_.Preparsed(), 1), HIDP_STATUS_INVALID_REPORT_LENGTH);
}

TEST_P(ReportChecks, FreedPreparsedDataIsInvalid) {
    const PHIDP_PREPARSED_DATA freed = ParsedDevice(Application()).Preparsed();
    EXPECT_EQ(Call(HidP_Output, freed, 3), HIDP_STATUS_INVALID_PREPARSED_DATA);
}

INSTANTIATE_TEST_SUITE_P(EveryReportCall, ReportChecks, testing::ValuesIn(kCalls),
                         [](const auto& call) { return call.param.name; });

}  // namespace
}  // namespace simulator::hid
