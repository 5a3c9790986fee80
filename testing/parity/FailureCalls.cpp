#include "testing/parity/Reports.h"

namespace parity {
namespace {

struct Failure {
    Place place;
    USAGE usage;
    Bytes report;
};

// Every call checks the length, the report type and the usage: its status when several of them are
// wrong shows in which order.
std::vector<Failure> FailuresOf(const Reports& reports, const Field& field) {
    const Bytes report = reports.Filled(field.reportId, 0x00);
    const Bytes tooShort(report.begin(), report.end() - 1);
    Bytes tooLong = report;
    tooLong.push_back(0);

    const Place noType{kNoReportType, field.place.page, 0};
    std::vector<Failure> failures{
        {field.place, field.first, {}},
        {noType, field.first, {}},
        {field.place, field.first, tooShort},
        {field.place, kAbsentUsage, tooShort},
        {noType, field.first, tooShort},
        {field.place, field.first, tooLong},
        {noType, kAbsentUsage, report},
        {field.place, kAbsentUsage, report},
        {{field.place.type, 0, 0}, field.first, report},
    };
    for (const HIDP_REPORT_TYPE type : kReportTypes) {
        if (type == reports.type) continue;
        failures.push_back({{type, field.place.page, 0}, field.first, report});
    }
    return failures;
}

}  // namespace

void RecordFailures(RecordedCalls& calls, const Reports& reports) {
    const bool hasButtons = !reports.buttons.empty();
    const Field& button = hasButtons ? reports.buttons.front() : reports.values.front();
    for (const Failure& failure : FailuresOf(reports, button)) {
        calls.GetUsages(failure.place, 4, failure.report);
        calls.SetUsages(failure.place, {failure.usage}, failure.report);
        calls.UnsetUsages(failure.place, {failure.usage}, failure.report);
    }
    const bool hasValues = !reports.values.empty();
    const Field& value = hasValues ? reports.values.front() : reports.buttons.front();
    for (const Failure& failure : FailuresOf(reports, value)) {
        calls.GetUsageValue(failure.place, failure.usage, failure.report);
        calls.SetUsageValue(failure.place, failure.usage, 1, failure.report);
    }
}

}  // namespace parity
