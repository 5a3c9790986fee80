// One parsed top-level collection. Built once by the parser, then shared and never changed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <windows.h>
#include <hidpi.h>

#include "testing/simulator/hid/LocalItems.h"
#include "testing/simulator/hid/ReportLayout.h"

namespace simulator::hid {

// A collection item with its place among the others. Index 0 means that there is no such one,
// except as a parent, where it is the top-level collection.
struct LinkCollection {
    UsageAndPage usage;
    std::uint8_t type = 0;
    USHORT parent = 0;
    USHORT children = 0;
    USHORT firstChild = 0;   // the one that opens last
    USHORT nextSibling = 0;  // the one that opens before this
};

class Collection {
 public:
    explicit Collection(const LinkCollection& top) : links_{top} {}

    // Places the new link collection among the children of its parent, and returns its index. Index
    // 0 is the top-level collection itself.
    USHORT AddLink(LinkCollection link);
    ReportLayout& Reports(HIDP_REPORT_TYPE type) {
        return reports_.at(static_cast<std::size_t>(type));
    }

    const std::vector<LinkCollection>& Links() const { return links_; }
    // Returns null when there is no such report type; callers of the platform may pass any number.
    const ReportLayout* FindReports(HIDP_REPORT_TYPE type) const;

 private:
    std::vector<LinkCollection> links_;
    std::array<ReportLayout, 3> reports_;  // by HIDP_REPORT_TYPE
};

bool EndsOnBytes(const Collection& collection);

}  // namespace simulator::hid
