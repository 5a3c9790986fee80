// Which capability a call on one usage of one report means.
#pragma once

#include <cstdint>
#include <vector>

#include "testing/simulator/hid/Capability.h"

namespace simulator::hid {

struct CapabilitySearch {
    const Capability* found = nullptr;
    NTSTATUS status = HIDP_STATUS_USAGE_NOT_FOUND;  // why there is none
};

// The first match in capability order whose report the buffer with this id byte can be.
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
