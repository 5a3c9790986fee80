// Decodes input reports by the positions of their fields, without a HID parser.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace fuzz {

// A variable field with a bit for each usage, or an array whose slots hold usages' numbers, counted
// from 1.
struct UsageField {
    std::uint8_t reportId;
    std::size_t firstBit;  // counted from the report id's byte
    std::size_t bits;
    std::size_t count;
    std::uint16_t firstUsage;
    std::uint16_t slotUsages;  // the number of usages of an array; 0: no array
};

struct StateField {
    std::uint8_t reportId;
    std::size_t firstBit;
    std::size_t bits;
};

struct InputReport {
    std::uint8_t reportId;
    std::vector<std::uint16_t> usages;  // ascending, each as often as it was sent
    std::uint32_t firmwareState;        // 0 when the report does not carry it
};

struct InputFields {
    std::vector<UsageField> usages;
    std::vector<StateField> states;

    // Returns nothing for a report without a usage field. The id 0 stands for every report.
    std::optional<InputReport> Read(const std::vector<std::uint8_t>& report) const;
};

}  // namespace fuzz
