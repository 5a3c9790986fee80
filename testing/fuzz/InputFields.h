// What an input report says, by the places of its fields alone.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace fuzz {

// Either a bit for each usage, or slots that hold the usages' numbers, counted from 1.
struct UsageField {
    std::uint8_t reportId;
    std::size_t firstBit;  // the report id's byte counted
    std::size_t bits;
    std::size_t count;
    std::uint16_t firstUsage;
    std::uint16_t slotUsages;  // how many usages have a number; 0: no slots
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

    // Nothing for a report without usages. The id 0 stands for every report.
    std::optional<InputReport> Read(const std::vector<std::uint8_t>& report) const;
};

}  // namespace fuzz
