#include "testing/parity/Reports.h"

namespace parity {
namespace {

struct TypeMembers {
    HIDP_REPORT_TYPE type;
    USHORT HIDP_CAPS::*length;
    USHORT HIDP_CAPS::*buttonCaps;
    USHORT HIDP_CAPS::*valueCaps;
};
constexpr TypeMembers kTypeMembers[] = {
    {HidP_Input, &HIDP_CAPS::InputReportByteLength, &HIDP_CAPS::NumberInputButtonCaps,
     &HIDP_CAPS::NumberInputValueCaps},
    {HidP_Output, &HIDP_CAPS::OutputReportByteLength, &HIDP_CAPS::NumberOutputButtonCaps,
     &HIDP_CAPS::NumberOutputValueCaps},
    {HidP_Feature, &HIDP_CAPS::FeatureReportByteLength, &HIDP_CAPS::NumberFeatureButtonCaps,
     &HIDP_CAPS::NumberFeatureValueCaps},
};

template <typename Caps>
Field FieldOf(HIDP_REPORT_TYPE type, const Caps& caps) {
    Field field{};
    field.place = {type, caps.UsagePage, caps.LinkCollection};
    field.first = caps.IsRange ? caps.Range.UsageMin : caps.NotRange.Usage;
    // Usage 0 means no usage. Wine treats it as every usage and writes beyond the report.
    if (field.first == 0) field.first = 1;
    field.last = caps.IsRange ? caps.Range.UsageMax : caps.NotRange.Usage;
    field.reportId = caps.ReportID;
    return field;
}

Field FieldOf(HIDP_REPORT_TYPE type, const HIDP_VALUE_CAPS& caps) {
    Field field = FieldOf<HIDP_VALUE_CAPS>(type, caps);
    field.logicalMinimum = static_cast<ULONG>(caps.LogicalMin);
    field.logicalMaximum = static_cast<ULONG>(caps.LogicalMax);
    return field;
}

// Requests a list of the exact length, and of the lengths around it.
template <typename GetList>
std::vector<Field> FieldsOf(HIDP_REPORT_TYPE type, USHORT count, GetList getList) {
    getList(type, static_cast<USHORT>(0));
    if (count > 0) getList(type, static_cast<USHORT>(count - 1));
    getList(type, static_cast<USHORT>(count + 1));
    std::vector<Field> fields;
    for (const auto& caps : getList(type, count)) fields.push_back(FieldOf(type, caps));
    return fields;
}

Reports ReportsOf(RecordedCalls& calls, const HIDP_CAPS& caps, const TypeMembers& members) {
    Reports reports{};
    reports.type = members.type;
    reports.length = caps.*members.length;
    reports.links = caps.NumberLinkCollectionNodes;
    reports.buttons = FieldsOf(
        members.type, caps.*members.buttonCaps,
        [&](HIDP_REPORT_TYPE type, USHORT room) { return calls.GetButtonCaps(type, room); });
    reports.values = FieldsOf(
        members.type, caps.*members.valueCaps,
        [&](HIDP_REPORT_TYPE type, USHORT room) { return calls.GetValueCaps(type, room); });
    for (const Field& field : reports.buttons) reports.ids.insert(field.reportId);
    for (const Field& field : reports.values) reports.ids.insert(field.reportId);
    return reports;
}

void RecordUsageCounts(RecordedCalls& calls, const Reports& reports) {
    std::set<USAGE> pages{0, kAbsentPage};
    for (const Field& field : reports.buttons) pages.insert(field.place.page);
    for (const USAGE page : pages) calls.MaxUsageListLength(reports.type, page);
}

}  // namespace

std::vector<Reports> RecordLists(RecordedCalls& calls) {
    const HIDP_CAPS caps = calls.GetCaps();
    const ULONG nodes = caps.NumberLinkCollectionNodes;
    for (const ULONG room : {nodes - 1, nodes + 1, nodes}) calls.GetLinkCollectionNodes(room);
    std::vector<Reports> lists;
    for (const TypeMembers& members : kTypeMembers) {
        lists.push_back(ReportsOf(calls, caps, members));
        RecordUsageCounts(calls, lists.back());
    }
    calls.GetButtonCaps(kNoReportType, 4);
    calls.GetValueCaps(kNoReportType, 4);
    calls.MaxUsageListLength(kNoReportType, 0);
    return lists;
}

}  // namespace parity
