// One parsed top-level collection. Built once by the parser, then shared and never changed.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include <windows.h>
#include <hidpi.h>

#include "testing/simulator/hid/LocalItems.h"
#include "testing/simulator/hid/ReportLayout.h"

namespace simulator::hid {

class Collection {
 public:
    explicit Collection(UsageAndPage usage) : links_{usage} {}

    // Returns the index of the new link collection. Index 0 is the top-level collection itself.
    USHORT AddLink(UsageAndPage usage);
    ReportLayout& Reports(HIDP_REPORT_TYPE type) {
        return reports_.at(static_cast<std::size_t>(type));
    }

    const std::vector<UsageAndPage>& Links() const { return links_; }
    // Returns null when there is no such report type; callers of the platform may pass any number.
    const ReportLayout* FindReports(HIDP_REPORT_TYPE type) const;

 private:
    std::vector<UsageAndPage> links_;
    std::array<ReportLayout, 3> reports_;  // by HIDP_REPORT_TYPE
};

}  // namespace simulator::hid
