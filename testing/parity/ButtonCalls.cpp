#include "testing/parity/Reports.h"

namespace parity {
namespace {

void Set(RecordedCalls& calls, const Reports& reports, const Field& field) {
    const Bytes empty = reports.Filled(field.reportId, 0x00);
    calls.SetUsages(field.place, {field.first}, empty);
    calls.SetUsages(field.place, {field.first}, reports.Filled(0, 0x00));
    calls.SetUsages(field.Anywhere(), {field.last}, empty);
    calls.SetUsages(field.place, {field.last, field.first}, empty);
    calls.SetUsages(field.place, {field.first, kAbsentUsage, field.last}, empty);
    calls.SetUsages(field.place, {field.last}, reports.Filled(field.reportId, 0xFF));
    calls.SetUsages(field.place, UsageList(5, field.first), empty);
    calls.SetUsages(field.place, {}, empty);
}

void Unset(RecordedCalls& calls, const Reports& reports, const Field& field) {
    calls.UnsetUsages(field.place, {field.first}, reports.Filled(field.reportId, 0x00));
    calls.UnsetUsages(field.place, {kAbsentUsage}, reports.Filled(field.reportId, 0xFF));
    calls.UnsetUsages(field.place, {field.last}, reports.Filled(field.reportId, 0xFF));
    calls.UnsetUsages(field.place, {field.last}, reports.Filled(0, 0xFF));
    calls.UnsetUsages(field.place, {field.first}, reports.CountingDown(field.reportId));
    calls.UnsetUsages(field.place, {field.last}, reports.CountingDown(field.reportId));
}

void Get(RecordedCalls& calls, const Reports& reports, const Field& field) {
    constexpr ULONG kRoom = 400;
    std::set<UCHAR> ids = reports.ids;
    ids.insert({0, kAbsentReportId});
    for (const UCHAR id : ids) {
        calls.GetUsages(field.Anywhere(), kRoom, reports.Filled(id, 0x00));
        calls.GetUsages(field.Anywhere(), kRoom, reports.Filled(id, 0x01));
        calls.GetUsages(field.Anywhere(), kRoom, reports.Filled(id, 0xFF));
        calls.GetUsages(field.Anywhere(), kRoom, reports.Patterned(id));
    }
    calls.GetUsages(field.place, kRoom, reports.Filled(field.reportId, 0xA5));
    for (const ULONG room : {0u, 1u, 2u}) {
        calls.GetUsages(field.Anywhere(), room, reports.Filled(field.reportId, 0x03));
    }
}

void CallWithoutField(RecordedCalls& calls, const Place& place, USAGE usage, const Bytes& report) {
    calls.GetUsages(place, 4, report);
    calls.SetUsages(place, {usage}, report);
    calls.UnsetUsages(place, {usage}, report);
}

void CallElsewhere(RecordedCalls& calls, const Reports& reports, const Field& field) {
    for (const Place& place : reports.PlacesWithout(field)) {
        CallWithoutField(calls, place, field.first, reports.Filled(field.reportId, 0xFF));
    }
    for (const UCHAR id : reports.IdsWithout(field)) {
        CallWithoutField(calls, field.place, field.first, reports.Filled(id, 0xFF));
    }
}

}  // namespace

void RecordButtonCalls(RecordedCalls& calls, const Reports& reports) {
    for (const Field& field : reports.buttons) {
        Set(calls, reports, field);
        Unset(calls, reports, field);
        Get(calls, reports, field);
    }
    for (const Field& field : reports.Outermost(reports.buttons)) {
        CallElsewhere(calls, reports, field);
    }
    for (const Field& value : reports.Outermost(reports.values)) {
        CallWithoutField(calls, value.place, value.first, reports.Filled(value.reportId, 0x00));
    }
}

}  // namespace parity
