#include "tools/recording/CapabilityRecords.h"

namespace recording {
namespace {

template <typename Convert>
Json RangeOrSingle(bool isRange, USHORT minimum, USHORT maximum, Convert convert) {
    Json bounds = Json::array({convert(minimum)});
    if (isRange) bounds.push_back(convert(maximum));
    return bounds;
}

// A single usage or index occupies the place of a range's minimum.
template <typename Caps>
Json CommonJson(const Caps& caps) {
    const auto hex = [](USHORT number) { return Hex(number); };
    const auto plain = [](USHORT number) { return number; };
    const auto& range = caps.Range;
    return {
        {"usagePage", Hex(caps.UsagePage)},
        {"usages", RangeOrSingle(caps.IsRange, range.UsageMin, range.UsageMax, hex)},
        {"reportId", caps.ReportID},
        {"bitField", Hex(caps.BitField)},
        {"linkCollection", caps.LinkCollection},
        {"linkUsagePage", Hex(caps.LinkUsagePage)},
        {"linkUsage", Hex(caps.LinkUsage)},
        {"isAlias", caps.IsAlias != 0},
        {"isAbsolute", caps.IsAbsolute != 0},
        {"dataIndices", RangeOrSingle(caps.IsRange, range.DataIndexMin, range.DataIndexMax, plain)},
        {"strings", RangeOrSingle(caps.IsStringRange, range.StringMin, range.StringMax, plain)},
        {"designators",
         RangeOrSingle(caps.IsDesignatorRange, range.DesignatorMin, range.DesignatorMax, plain)}};
}

}  // namespace

Json ToJson(const HIDP_VALUE_CAPS& caps) {
    Json json = CommonJson(caps);
    json["hasNull"] = caps.HasNull != 0;
    json["bits"] = caps.BitSize;
    json["count"] = caps.ReportCount;
    json["logicalMinimum"] = caps.LogicalMin;
    json["logicalMaximum"] = caps.LogicalMax;
    json["physicalMinimum"] = caps.PhysicalMin;
    json["physicalMaximum"] = caps.PhysicalMax;
    json["units"] = Hex(static_cast<std::uint32_t>(caps.Units));
    json["unitsExponent"] = static_cast<std::int32_t>(caps.UnitsExp);
    return json;
}

Json ToJson(const HIDP_BUTTON_CAPS& caps) { return CommonJson(caps); }

Json ToJson(const HIDP_LINK_COLLECTION_NODE& node) {
    return {{"usagePage", Hex(node.LinkUsagePage)},
            {"usage", Hex(node.LinkUsage)},
            {"parent", node.Parent},
            {"children", node.NumberOfChildren},
            {"nextSibling", node.NextSibling},
            {"firstChild", node.FirstChild},
            {"type", static_cast<unsigned>(node.CollectionType)},
            {"isAlias", node.IsAlias != 0}};
}

}  // namespace recording
