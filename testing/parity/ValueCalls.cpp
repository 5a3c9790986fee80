#include "testing/parity/Reports.h"

namespace parity {
namespace {

void Set(RecordedCalls& calls, const Reports& reports, const Field& field, USAGE usage) {
    const Bytes empty = reports.Filled(field.reportId, 0x00);
    constexpr ULONG kAllBits = 0xFFFFFFFF;
    for (const ULONG value : {ULONG{1}, field.logicalMinimum, field.logicalMaximum + 1, kAllBits}) {
        calls.SetUsageValue(field.place, usage, value, empty);
    }
    calls.SetUsageValue(field.place, usage, 1, reports.Filled(0, 0x00));
    calls.SetUsageValue(field.place, usage, 0, reports.Filled(field.reportId, 0xFF));
    calls.SetUsageValue(field.Anywhere(), usage, 0xA5A5A5A5, empty);
}

void Get(RecordedCalls& calls, const Reports& reports, const Field& field, USAGE usage) {
    calls.GetUsageValue(field.place, usage, reports.Filled(field.reportId, 0x00));
    calls.GetUsageValue(field.place, usage, reports.Filled(field.reportId, 0xFF));
    calls.GetUsageValue(field.place, usage, reports.Patterned(field.reportId));
    calls.GetUsageValue(field.Anywhere(), usage, reports.Patterned(0));
}

void CallWithoutField(RecordedCalls& calls, const Place& place, USAGE usage, const Bytes& report) {
    calls.GetUsageValue(place, usage, report);
    calls.SetUsageValue(place, usage, 1, report);
}

void CallElsewhere(RecordedCalls& calls, const Reports& reports, const Field& field) {
    for (const Place& place : reports.PlacesWithout(field)) {
        CallWithoutField(calls, place, field.first, reports.Filled(field.reportId, 0x5A));
    }
    for (const UCHAR id : reports.IdsWithout(field)) {
        CallWithoutField(calls, field.place, field.first, reports.Filled(id, 0x5A));
    }
}

}  // namespace

void RecordValueCalls(RecordedCalls& calls, const Reports& reports) {
    for (const Field& field : reports.values) {
        for (const USAGE usage : std::set<USAGE>{field.first, field.last}) {
            Set(calls, reports, field, usage);
            Get(calls, reports, field, usage);
        }
    }
    for (const Field& field : reports.Outermost(reports.values)) {
        CallElsewhere(calls, reports, field);
    }
    for (const Field& button : reports.Outermost(reports.buttons)) {
        CallWithoutField(calls, button.place, button.first, reports.Filled(button.reportId, 0x00));
    }
}

}  // namespace parity
