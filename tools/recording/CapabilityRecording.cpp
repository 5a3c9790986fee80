#include "tools/recording/CapabilityRecording.h"

#include <vector>

#include "tools/recording/CapabilityRecords.h"
#include "tools/recording/ReportsWithUsages.h"

namespace recording {
namespace {

struct TypeMembers {
    const char* name;
    HIDP_REPORT_TYPE type;
    USHORT HIDP_CAPS::*length;
    USHORT HIDP_CAPS::*dataIndices;
    USHORT HIDP_CAPS::*buttons;
    USHORT HIDP_CAPS::*values;
};
constexpr TypeMembers kTypes[] = {
    {"input", HidP_Input, &HIDP_CAPS::InputReportByteLength, &HIDP_CAPS::NumberInputDataIndices,
     &HIDP_CAPS::NumberInputButtonCaps, &HIDP_CAPS::NumberInputValueCaps},
    {"output", HidP_Output, &HIDP_CAPS::OutputReportByteLength, &HIDP_CAPS::NumberOutputDataIndices,
     &HIDP_CAPS::NumberOutputButtonCaps, &HIDP_CAPS::NumberOutputValueCaps},
    {"feature", HidP_Feature, &HIDP_CAPS::FeatureReportByteLength,
     &HIDP_CAPS::NumberFeatureDataIndices, &HIDP_CAPS::NumberFeatureButtonCaps,
     &HIDP_CAPS::NumberFeatureValueCaps},
};

Json Reports(const ReportType& reports, const HIDP_VALUE_CAPS& caps, const HIDP_VALUE_CAPS*) {
    return ReportsWith(reports, caps);
}
Json Reports(const ReportType& reports, const HIDP_BUTTON_CAPS& caps,
             const HIDP_BUTTON_CAPS* previous) {
    return ReportsWith(reports, caps, previous);
}

// `list` is HidP_GetButtonCaps or HidP_GetValueCaps.
template <typename Caps, typename List>
Json Records(const ReportType& reports, USHORT count, const char* name, List list,
             CallRecord& calls) {
    Json json = Json::array();
    if (count == 0) return json;
    std::vector<Caps> records(count);
    const NTSTATUS status = calls.Parse(
        name, [&] { return list(reports.type, records.data(), &count, reports.preparsed); });
    if (status < 0) return json;
    records.resize(count);
    const Caps* previous = nullptr;
    for (const Caps& caps : records) {
        Json record = ToJson(caps);
        record["reports"] = Reports(reports, caps, previous);
        json.push_back(std::move(record));
        previous = &caps;
    }
    return json;
}

Json LinkCollections(PHIDP_PREPARSED_DATA preparsed, ULONG count, CallRecord& calls) {
    std::vector<HIDP_LINK_COLLECTION_NODE> nodes(count);
    const NTSTATUS status = calls.Parse("HidP_GetLinkCollectionNodes", [&] {
        return HidP_GetLinkCollectionNodes(nodes.data(), &count, preparsed);
    });
    Json json = Json::array();
    if (status < 0) return json;
    nodes.resize(count);
    for (const HIDP_LINK_COLLECTION_NODE& node : nodes) json.push_back(ToJson(node));
    return json;
}

}  // namespace

Json RecordCapabilities(PHIDP_PREPARSED_DATA preparsed, CallRecord& calls) {
    HIDP_CAPS caps{};
    if (calls.Parse("HidP_GetCaps", [&] { return HidP_GetCaps(preparsed, &caps); }) < 0) return {};
    Json json = {
        {"usagePage", Hex(caps.UsagePage)},
        {"usage", Hex(caps.Usage)},
        {"linkCollections", LinkCollections(preparsed, caps.NumberLinkCollectionNodes, calls)}};
    for (const TypeMembers& type : kTypes) {
        const ReportType reports{preparsed, type.type, caps.*type.length};
        json[type.name] = {
            {"length", reports.length},
            {"dataIndices", caps.*type.dataIndices},
            {"buttons", Records<HIDP_BUTTON_CAPS>(reports, caps.*type.buttons, "HidP_GetButtonCaps",
                                                  HidP_GetButtonCaps, calls)},
            {"values", Records<HIDP_VALUE_CAPS>(reports, caps.*type.values, "HidP_GetValueCaps",
                                                HidP_GetValueCaps, calls)}};
    }
    return json;
}

}  // namespace recording
