#include "testing/simulator/hid/CapabilityLists.h"

#include <algorithm>

#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator::hid {
namespace {

// Sets the members that both records have. Of Range and NotRange only the one that its flag selects
// is set: a caller that reads Range of a single usage finds a maximum of 0.
template <typename Caps>
Caps CommonCaps(const Collection& collection, const Capability& capability) {
    const UsageAndPage& link = collection.Links()[capability.linkCollection].usage;
    const DeclaredUsages& usages = capability.usages;
    Caps caps{};
    caps.UsagePage = usages.page;
    caps.ReportID = capability.ReportId();
    caps.BitField = capability.flags;
    caps.LinkCollection = capability.linkCollection;
    caps.LinkUsage = link.usage;
    caps.LinkUsagePage = link.page;
    caps.IsRange = usages.isRange ? 1 : 0;
    caps.IsAbsolute = (capability.flags & MainItem::kRelative) == 0 ? 1 : 0;
    if (usages.isRange) {
        caps.Range.UsageMin = usages.minimum;
        caps.Range.UsageMax = usages.maximum;
        caps.Range.DataIndexMin = capability.dataIndex;
        caps.Range.DataIndexMax = static_cast<USHORT>(capability.dataIndex + usages.Count() - 1);
    } else {
        caps.NotRange.Usage = usages.minimum;
        caps.NotRange.DataIndex = capability.dataIndex;
    }
    // A single index occupies the place of a range's minimum.
    caps.IsStringRange = usages.strings.isRange ? 1 : 0;
    caps.Range.StringMin = usages.strings.minimum;
    caps.Range.StringMax = usages.strings.maximum;
    caps.IsDesignatorRange = usages.designators.isRange ? 1 : 0;
    caps.Range.DesignatorMin = usages.designators.minimum;
    caps.Range.DesignatorMax = usages.designators.maximum;
    return caps;
}

HIDP_BUTTON_CAPS ButtonCaps(const Collection& collection, const Capability& capability) {
    return CommonCaps<HIDP_BUTTON_CAPS>(collection, capability);
}

HIDP_VALUE_CAPS ValueCaps(const Collection& collection, const Capability& capability) {
    const GlobalItems& globals = capability.globals;
    auto caps = CommonCaps<HIDP_VALUE_CAPS>(collection, capability);
    caps.HasNull = (capability.flags & MainItem::kNullState) != 0 ? 1 : 0;
    caps.BitSize = static_cast<USHORT>(globals.reportSize);
    // Each usage of a range has a field, and the platform says so with a count of 1.
    caps.ReportCount = capability.usages.isRange ? 1 : static_cast<USHORT>(capability.fieldCount);
    caps.UnitsExp = static_cast<ULONG>(globals.unitExponent);
    caps.Units = globals.unit;
    caps.LogicalMin = globals.logicalMinimum;
    caps.LogicalMax = globals.logicalMaximum;
    caps.PhysicalMin = globals.physicalMinimum;
    caps.PhysicalMax = globals.physicalMaximum;
    return caps;
}

template <typename Caps, typename Convert>
NTSTATUS List(const Collection& collection, const std::vector<Capability>& capabilities, Caps* list,
              USHORT& length, Convert convert) {
    const USHORT room = length;
    length = static_cast<USHORT>(capabilities.size());
    if (length == 0) return HIDP_STATUS_USAGE_NOT_FOUND;
    if (length > room) return HIDP_STATUS_BUFFER_TOO_SMALL;
    std::transform(capabilities.begin(), capabilities.end(), list,
                   [&](const Capability& capability) { return convert(collection, capability); });
    return HIDP_STATUS_SUCCESS;
}

HIDP_LINK_COLLECTION_NODE NodeOf(const LinkCollection& link) {
    HIDP_LINK_COLLECTION_NODE node{};
    node.LinkUsage = link.usage.usage;
    node.LinkUsagePage = link.usage.page;
    node.Parent = link.parent;
    node.NumberOfChildren = link.children;
    node.NextSibling = link.nextSibling;
    node.FirstChild = link.firstChild;
    node.CollectionType = link.type;
    return node;
}

struct TypeMembers {
    HIDP_REPORT_TYPE type;
    USHORT HIDP_CAPS::*byteLength;
    USHORT HIDP_CAPS::*buttonCaps;
    USHORT HIDP_CAPS::*valueCaps;
    USHORT HIDP_CAPS::*dataIndices;
};
constexpr TypeMembers kTypeMembers[] = {
    {HidP_Input, &HIDP_CAPS::InputReportByteLength, &HIDP_CAPS::NumberInputButtonCaps,
     &HIDP_CAPS::NumberInputValueCaps, &HIDP_CAPS::NumberInputDataIndices},
    {HidP_Output, &HIDP_CAPS::OutputReportByteLength, &HIDP_CAPS::NumberOutputButtonCaps,
     &HIDP_CAPS::NumberOutputValueCaps, &HIDP_CAPS::NumberOutputDataIndices},
    {HidP_Feature, &HIDP_CAPS::FeatureReportByteLength, &HIDP_CAPS::NumberFeatureButtonCaps,
     &HIDP_CAPS::NumberFeatureValueCaps, &HIDP_CAPS::NumberFeatureDataIndices},
};

}  // namespace

HIDP_CAPS CapsOf(const Collection& collection) {
    HIDP_CAPS caps{};
    caps.UsagePage = collection.Links().front().usage.page;
    caps.Usage = collection.Links().front().usage.usage;
    caps.NumberLinkCollectionNodes = static_cast<USHORT>(collection.Links().size());
    for (const TypeMembers& members : kTypeMembers) {
        const ReportLayout& reports = *collection.FindReports(members.type);
        caps.*members.byteLength = static_cast<USHORT>(reports.LongestReport());
        caps.*members.buttonCaps = static_cast<USHORT>(reports.Buttons().size());
        caps.*members.valueCaps = static_cast<USHORT>(reports.Values().size());
        caps.*members.dataIndices = reports.DataIndices();
    }
    return caps;
}

NTSTATUS GetLinkCollectionNodes(const Collection& collection, HIDP_LINK_COLLECTION_NODE* list,
                                ULONG& length) {
    const std::vector<LinkCollection>& links = collection.Links();
    const ULONG room = length;
    length = static_cast<ULONG>(links.size());
    if (length > room) return HIDP_STATUS_BUFFER_TOO_SMALL;
    std::transform(links.begin(), links.end(), list, NodeOf);
    return HIDP_STATUS_SUCCESS;
}

NTSTATUS GetValueCaps(const Collection& collection, HIDP_REPORT_TYPE type, HIDP_VALUE_CAPS* list,
                      USHORT& length) {
    const ReportLayout* reports = collection.FindReports(type);
    if (reports == nullptr) return HIDP_STATUS_INVALID_REPORT_TYPE;
    return List(collection, reports->Values(), list, length, ValueCaps);
}

NTSTATUS GetButtonCaps(const Collection& collection, HIDP_REPORT_TYPE type, HIDP_BUTTON_CAPS* list,
                       USHORT& length) {
    const ReportLayout* reports = collection.FindReports(type);
    if (reports == nullptr) return HIDP_STATUS_INVALID_REPORT_TYPE;
    return List(collection, reports->Buttons(), list, length, ButtonCaps);
}

}  // namespace simulator::hid
