// The search for the capability of one usage in one report.
#pragma once

#include <cstdint>
#include <vector>

#include "testing/simulator/hid/Capability.h"

namespace simulator::hid {

struct CapabilitySearch {
    const Capability* found = nullptr;
    NTSTATUS status = HIDP_STATUS_USAGE_NOT_FOUND;  // why there is none
};

// Returns the first match in capability order whose report is compatible with this id byte.
inline CapabilitySearch FindCapability(const std::vector<Capability>& capabilities, USAGE page,
                                       USHORT linkCollection, USAGE usage, UCHAR reportId) {
    CapabilitySearch search;
    for (const Capability& capability : capabilities) {
        if (!capability.IsOn(page, linkCollection) || !capability.Has(usage)) continue;
        if (capability.CanLieIn(reportId)) return {&capability, HIDP_STATUS_SUCCESS};
        search.status = HIDP_STATUS_INCOMPATIBLE_REPORT_ID;
    }
    return search;
}

}  // namespace simulator::hid
