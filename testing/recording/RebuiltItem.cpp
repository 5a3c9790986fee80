#include "testing/recording/RebuiltItem.h"

#include <algorithm>

#include "testing/recording/ArraySlots.h"
#include "testing/recording/ReportBits.h"
#include "testing/recording/UsageRange.h"

namespace recording {
namespace {

constexpr std::uint32_t kVariable = 0x02;  // of a bit field

bool IsArray(const Json& record) { return (NumberOf(record.at("bitField")) & kVariable) == 0; }

RebuiltItem Unplaced(const Json& record, bool isButton) {
    RebuiltItem item;
    item.records = {&record};
    item.isButton = isButton;
    item.isArray = isButton && IsArray(record);
    return item;
}

// Appends a record to the array of the one before it, when they have the same slots.
std::vector<RebuiltItem> Collect(const Json& reports) {
    std::vector<RebuiltItem> items;
    for (const Json& record : reports.at("buttons")) {
        if (IsArray(record) && record.at("reports").value("sharesSlots", false)) {
            items.back().records.push_back(&record);
        } else {
            items.push_back(Unplaced(record, true));
        }
    }
    for (const Json& record : reports.at("values")) items.push_back(Unplaced(record, false));
    return items;
}

void TakeField(RebuiltItem& item) {
    const Json& record = item.First();
    const UsageRange usages(record);
    item.bits = item.isButton ? 1 : record.at("bits").get<std::size_t>();
    item.count = usages.Count();
    if (item.isButton) return;
    // Systems differ in whether the count of a range is that of its usages.
    if (!usages.isRange) item.count = record.at("count").get<std::size_t>();
    item.logicalMinimum = record.at("logicalMinimum").get<std::int64_t>();
    item.logicalMaximum = record.at("logicalMaximum").get<std::int64_t>();
}

bool PlaceVariable(RebuiltItem& item) {
    TakeField(item);
    const Json first = item.First().at("reports").value("first", Json());
    const auto start = first.is_string() ? RecordedReport(first).LowestSetBit() : std::nullopt;
    item.isPlaced = start.has_value();
    item.startBit = start.value_or(0);
    return item.isPlaced || item.bits == 0;
}

std::string NameOf(const RebuiltItem& item) {
    return std::string(item.isArray    ? "array"
                       : item.isButton ? "button"
                                       : "value") +
           " usage " + item.First().at("usages").front().get<std::string>() + " of report " +
           std::to_string(item.ReportId());
}

// Members that every usage of a main item has in common.
constexpr const char* kShared[] = {
    "reportId",       "bitField",        "linkCollection",  "bits",  "logicalMinimum",
    "logicalMaximum", "physicalMinimum", "physicalMaximum", "units", "unitsExponent"};

}  // namespace

int RebuiltItem::DataIndex() const {
    int lowest = First().at("dataIndices").front();
    for (const Json* record : records) {
        lowest = std::min(lowest, (*record).at("dataIndices").front().get<int>());
    }
    return lowest;
}

bool RebuiltItem::IsContinuedBy(const RebuiltItem& other) const {
    const bool isAdjacent = isPlaced && other.isPlaced && other.EndBit() == startBit;
    if (!isAdjacent || isArray || other.isArray || isButton != other.isButton) return false;
    return std::all_of(std::begin(kShared), std::end(kShared), [&](const char* member) {
        return First().value(member, Json()) == other.First().value(member, Json());
    });
}

std::vector<RebuiltItem> RebuildItems(const Json& reports, std::vector<std::string>& notes) {
    std::vector<RebuiltItem> placed;
    for (RebuiltItem& item : Collect(reports)) {
        const bool isKnown = item.isArray ? PlaceArray(item) : PlaceVariable(item);
        if (!isKnown) notes.push_back(NameOf(item) + ": no recorded report tells its bits");
        if (isKnown || item.isArray || !item.isButton) placed.push_back(std::move(item));
    }
    std::stable_sort(placed.begin(), placed.end(), [](const auto& one, const auto& other) {
        return one.DataIndex() < other.DataIndex();
    });
    std::vector<RebuiltItem> items;
    for (RebuiltItem& item : placed) {
        if (items.empty() || !items.back().IsContinuedBy(item)) {
            items.push_back(std::move(item));
            continue;
        }
        RebuiltItem& whole = items.back();
        whole.records.push_back(&item.First());
        whole.startBit = item.startBit;
        whole.count += item.count;
    }
    return items;
}

}  // namespace recording
