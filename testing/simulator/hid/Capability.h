// One capability: the usages that the platform lists in one record, and their place in a report.
#pragma once

#include <cstdint>

#include <windows.h>
#include <hidpi.h>

#include "testing/simulator/hid/MainItem.h"

namespace simulator::hid {

struct Capability {
    DeclaredUsages usages;
    GlobalItems globals;
    std::uint16_t flags = 0;
    bool isArray = false;
    USHORT linkCollection = 0;
    USHORT dataIndex = 0;  // of the first usage; the others follow

    std::uint32_t startBit = 0;  // counted from the report id byte
    std::uint32_t fieldCount = 0;
    // For arrays: the slot value that stands for the first usage.
    std::int64_t firstSlotValue = 0;

    UCHAR ReportId() const { return globals.reportId; }

    // Link collection 0 stands for the whole top-level collection.
    bool IsOn(USAGE page, USHORT link) const {
        return usages.page == page && (link == 0 || link == linkCollection);
    }
    bool Has(USAGE usage) const { return usages.minimum <= usage && usage <= usages.maximum; }
    // A report whose id byte is still 0 can become any report.
    bool CanLieIn(UCHAR reportId) const { return reportId == 0 || reportId == ReportId(); }

    std::uint32_t FieldBit(std::uint32_t field) const {
        return startBit + field * globals.reportSize;
    }
    // For variable fields only. The last usage has all remaining fields.
    std::uint32_t FieldOf(USAGE usage) const {
        return static_cast<std::uint32_t>(usage - usages.minimum);
    }
    USAGE UsageOfField(std::uint32_t field) const {
        const std::uint32_t last = usages.Count() - 1;
        return static_cast<USAGE>(usages.minimum + (field < last ? field : last));
    }
};

}  // namespace simulator::hid
