// A main item of the descriptor that is rebuilt from recorded capabilities.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "testing/recording/ItemWriter.h"
#include "tools/recording/CallRecord.h"

namespace recording {

struct RebuiltItem {
    std::vector<const Json*> records;  // in the parser's order: the last declared first
    bool isButton = false;
    bool isArray = false;

    bool isPlaced = true;  // false: it follows the item before it, an array fills the report
    std::size_t startBit = 0;
    std::size_t bits = 0;   // of one field
    std::size_t count = 0;  // of fields
    std::int64_t logicalMinimum = 0;
    std::int64_t logicalMaximum = 1;

    const Json& First() const { return *records.front(); }
    std::uint8_t ReportId() const { return First().at("reportId").get<std::uint8_t>(); }
    int Link() const { return First().at("linkCollection").get<int>(); }
    int DataIndex() const;  // the lowest
    std::size_t EndBit() const { return startBit + bits * count; }
    // Returns whether the other one continues this main item's list of usages: the bits of the
    // usages of one item run against the order of its records.
    bool IsContinuedBy(const RebuiltItem& other) const;
};

// Returns the main items of one type of reports, in the order of the descriptor. `notes` gets a
// line for each record whose place in the report is not recorded; it is left out.
std::vector<RebuiltItem> RebuildItems(const Json& reports, std::vector<std::string>& notes);

}  // namespace recording
