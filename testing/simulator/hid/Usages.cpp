#include "testing/simulator/hid/Usages.h"

#include <optional>

#include "testing/simulator/hid/CapabilitySearch.h"
#include "testing/simulator/hid/ReportBits.h"

namespace simulator::hid {
namespace {

// An array slot that holds 0 is free, whatever the logical minimum: SetUsages writes its value into
// such a slot, so 0 cannot stand for a usage as well.
constexpr std::uint32_t kFreeSlot = 0;

std::uint32_t ValueOf(const Capability& capability, std::uint32_t field,
                      const std::uint8_t* report) {
    return GetBits(report, capability.FieldBit(field), capability.globals.reportSize);
}

void SetValue(const Capability& capability, std::uint32_t field, std::uint32_t value,
              std::uint8_t* report) {
    SetBits(report, capability.FieldBit(field), capability.globals.reportSize, value);
}

std::optional<USAGE> SetUsageOf(const Capability& capability, std::uint32_t field,
                                const std::uint8_t* report) {
    const std::uint32_t value = ValueOf(capability, field, report);
    if (value == 0) return std::nullopt;
    if (!capability.isArray) return capability.UsageOfField(field);
    const std::int64_t position = value - capability.firstSlotValue;
    if (position < 0 || position >= capability.usages.Count()) return std::nullopt;
    return static_cast<USAGE>(capability.usages.minimum + position);
}

std::optional<std::uint32_t> SlotWith(const Capability& capability, std::uint32_t value,
                                      const std::uint8_t* report) {
    for (std::uint32_t slot = 0; slot < capability.fieldCount; ++slot) {
        if (ValueOf(capability, slot, report) == value) return slot;
    }
    return std::nullopt;
}

NTSTATUS SetUsage(const Capability& capability, USAGE usage, std::uint8_t* report) {
    report[0] = capability.ReportId();
    if (!capability.isArray) {
        SetValue(capability, capability.FieldOf(usage), 1, report);
        return HIDP_STATUS_SUCCESS;
    }
    const std::optional<std::uint32_t> slot = SlotWith(capability, kFreeSlot, report);
    if (!slot) return HIDP_STATUS_BUFFER_TOO_SMALL;
    const std::int64_t value = capability.firstSlotValue + (usage - capability.usages.minimum);
    SetValue(capability, *slot, static_cast<std::uint32_t>(value), report);
    return HIDP_STATUS_SUCCESS;
}

// Moves the later slots up by one, so that the free slots stay together at the end. This is
// recorded on Windows of HidP_SetData, which unsets in the same arrays.
void FreeSlot(const Capability& capability, std::uint32_t slot, std::uint8_t* report) {
    for (; slot + 1 < capability.fieldCount; ++slot) {
        SetValue(capability, slot, ValueOf(capability, slot + 1, report), report);
    }
    SetValue(capability, slot, kFreeSlot, report);
}

NTSTATUS UnsetUsage(const Capability& capability, USAGE usage, std::uint8_t* report) {
    for (std::uint32_t field = 0; field < capability.fieldCount; ++field) {
        if (SetUsageOf(capability, field, report) != usage) continue;
        if (capability.isArray) {
            FreeSlot(capability, field, report);
        } else {
            SetValue(capability, field, 0, report);
        }
        return HIDP_STATUS_SUCCESS;
    }
    return HIDP_STATUS_BUTTON_NOT_PRESSED;
}

template <typename Change>
NTSTATUS ForEachUsage(const ReportLayout& reports, USAGE page, USHORT linkCollection,
                      const USAGE* list, ULONG& length, std::uint8_t* report, Change change) {
    for (ULONG i = 0; i < length; ++i) {
        const CapabilitySearch search =
            FindCapability(reports.Buttons(), page, linkCollection, list[i], report[0]);
        const NTSTATUS status =
            search.found != nullptr ? change(*search.found, list[i], report) : search.status;
        if (status < 0) {
            length = i;
            return status;
        }
    }
    return HIDP_STATUS_SUCCESS;
}

}  // namespace

NTSTATUS GetUsages(const ReportLayout& reports, USAGE page, USHORT linkCollection, USAGE* list,
                   ULONG& length, const std::uint8_t* report) {
    const ULONG room = length;
    ULONG found = 0;
    NTSTATUS status = HIDP_STATUS_USAGE_NOT_FOUND;
    bool isInReport = false;
    for (const Capability& capability : reports.Buttons()) {
        if (!capability.IsOn(page, linkCollection)) continue;
        if (!capability.CanLieIn(report[0])) {
            status = HIDP_STATUS_INCOMPATIBLE_REPORT_ID;
            continue;
        }
        isInReport = true;
        for (std::uint32_t field = 0; field < capability.fieldCount; ++field) {
            const std::optional<USAGE> usage = SetUsageOf(capability, field, report);
            if (!usage) continue;
            if (found < room) list[found] = *usage;
            ++found;
        }
    }
    if (!isInReport) return status;
    length = found;
    return found > room ? HIDP_STATUS_BUFFER_TOO_SMALL : HIDP_STATUS_SUCCESS;
}

NTSTATUS SetUsages(const ReportLayout& reports, USAGE page, USHORT linkCollection,
                   const USAGE* list, ULONG& length, std::uint8_t* report) {
    return ForEachUsage(reports, page, linkCollection, list, length, report, SetUsage);
}

NTSTATUS UnsetUsages(const ReportLayout& reports, USAGE page, USHORT linkCollection,
                     const USAGE* list, ULONG& length, std::uint8_t* report) {
    return ForEachUsage(reports, page, linkCollection, list, length, report, UnsetUsage);
}

}  // namespace simulator::hid
