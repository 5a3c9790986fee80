#include "testing/simulator/hid/UsageValues.h"

#include "testing/simulator/hid/CapabilitySearch.h"
#include "testing/simulator/hid/ReportBits.h"

namespace simulator::hid {

NTSTATUS GetUsageValue(const ReportLayout& reports, USAGE page, USHORT linkCollection, USAGE usage,
                       ULONG& value, const std::uint8_t* report) {
    const CapabilitySearch search =
        FindCapability(reports.Values(), page, linkCollection, usage, report[0]);
    if (search.found == nullptr) return search.status;
    const Capability& capability = *search.found;
    value = GetBits(report, capability.FieldBit(capability.FieldOf(usage)),
                    capability.globals.reportSize);
    return HIDP_STATUS_SUCCESS;
}

// The logical range is not checked: the platform leaves that to the device.
NTSTATUS SetUsageValue(const ReportLayout& reports, USAGE page, USHORT linkCollection, USAGE usage,
                       ULONG value, std::uint8_t* report) {
    const CapabilitySearch search =
        FindCapability(reports.Values(), page, linkCollection, usage, report[0]);
    if (search.found == nullptr) return search.status;
    const Capability& capability = *search.found;
    report[0] = capability.ReportId();
    SetBits(report, capability.FieldBit(capability.FieldOf(usage)), capability.globals.reportSize,
            value);
    return HIDP_STATUS_SUCCESS;
}

}  // namespace simulator::hid
