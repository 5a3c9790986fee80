#include "testing/simulator/hid/Collection.h"

#include <algorithm>
#include <iterator>

#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator::hid {

USHORT Collection::AddLink(LinkCollection link) {
    const auto index = static_cast<USHORT>(links_.size());
    LinkCollection& parent = links_[link.parent];
    link.nextSibling = parent.firstChild;
    parent.firstChild = index;
    ++parent.children;
    links_.push_back(link);
    return index;
}

const ReportLayout* Collection::FindReports(HIDP_REPORT_TYPE type) const {
    const auto index = static_cast<std::size_t>(type);
    return index < reports_.size() ? &reports_[index] : nullptr;
}

std::optional<std::size_t> ReportLength(const Collection& collection, HIDP_REPORT_TYPE type,
                                        std::uint8_t reportId) {
    const ReportLayout* reports = collection.FindReports(type);
    return reports != nullptr ? reports->ReportLength(reportId) : std::nullopt;
}

bool UsesReportIds(const Collection& collection) {
    // The parser refuses a descriptor in which only some reports have an id.
    for (const HIDP_REPORT_TYPE type : {HidP_Input, HidP_Output, HidP_Feature}) {
        const std::vector<std::uint8_t> ids = ReportIds(collection, type);
        if (!ids.empty()) return ids.front() != 0;
    }
    return false;
}

bool EndsOnBytes(const Collection& collection) {
    const HIDP_REPORT_TYPE types[] = {HidP_Input, HidP_Output, HidP_Feature};
    return std::all_of(std::begin(types), std::end(types), [&](HIDP_REPORT_TYPE type) {
        return collection.FindReports(type)->EndsOnBytes();
    });
}

std::vector<std::uint8_t> ReportIds(const Collection& collection, HIDP_REPORT_TYPE type) {
    const ReportLayout* reports = collection.FindReports(type);
    return reports != nullptr ? reports->ReportIds() : std::vector<std::uint8_t>{};
}

}  // namespace simulator::hid
