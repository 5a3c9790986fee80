#include "testing/simulator/hid/UsageValues.h"

#include "testing/simulator/hid/CapabilitySearch.h"
#include "testing/simulator/hid/ReportBits.h"

namespace simulator::hid {
namespace {

// Windows accepts such a field in a descriptor, but a value has no room for it.
bool IsTooWide(const Capability& capability) {
    return capability.globals.reportSize > kMaxValueBits;
}

}  // namespace

NTSTATUS GetUsageValue(const ReportLayout& reports, USAGE page, USHORT linkCollection, USAGE usage,
                       ULONG& value, const std::uint8_t* report) {
    const CapabilitySearch search =
        FindCapability(reports.Values(), page, linkCollection, usage, report[0]);
    if (search.found == nullptr) return search.status;
    const Capability& capability = *search.found;
    if (IsTooWide(capability)) return HIDP_STATUS_BUFFER_TOO_SMALL;
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
    if (IsTooWide(capability)) return HIDP_STATUS_BUFFER_TOO_SMALL;
    report[0] = capability.ReportId();
    SetBits(report, capability.FieldBit(capability.FieldOf(usage)), capability.globals.reportSize,
            value);
    return HIDP_STATUS_SUCCESS;
}

}  // namespace simulator::hid
