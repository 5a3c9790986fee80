#include "testing/recording/ArraySlots.h"

#include <algorithm>
#include <optional>

#include "testing/recording/ReportBits.h"
#include "testing/recording/UsageRange.h"

namespace recording {
namespace {

constexpr std::size_t kWidestSlot = 32;

std::size_t LowestSetBit(std::uint64_t number) {
    std::size_t bit = 0;
    while ((number >> bit & 1) == 0) ++bit;
    return bit;
}

std::size_t WidthOf(std::uint64_t number) {
    std::size_t width = 0;
    for (; number != 0; number >>= 1) ++width;
    return width;
}

// The report with one usage in the first slot, and the usage's position in the array.
struct Sample {
    RecordedReport report;
    std::int64_t position;
};

// Returns a sample for the first and the last usage of each record, in declared order. Usage 0 is
// in none; its index precedes that of usage 1.
std::optional<std::vector<Sample>> SamplesOf(const RebuiltItem& item) {
    std::vector<Sample> samples;
    std::int64_t position = 0;
    for (auto record = item.records.rbegin(); record != item.records.rend(); ++record) {
        const UsageRange usages(**record);
        const Json& reports = (**record).at("reports");
        const Json first = reports.value("first", Json());
        const Json last = reports.value("last", Json());
        if (!first.is_string() || !last.is_string()) return std::nullopt;
        samples.push_back({RecordedReport(first), position + (usages.minimum == 0 ? 1 : 0)});
        position += static_cast<std::int64_t>(usages.Count());
        samples.push_back({RecordedReport(last), position - 1});
    }
    return samples;
}

// The indices of two usages differ as their positions do, which tells where the slot begins.
// Without a second usage the index is taken for 1.
std::optional<std::size_t> StartOf(const std::vector<Sample>& samples) {
    const Sample& one = samples.front();
    const Sample& other = samples.back();
    if (one.position == other.position) return one.report.LowestSetBit();
    const auto different = LowestDifference(one.report, other.report);
    if (!different) return std::nullopt;
    const std::size_t shift =
        LowestSetBit(static_cast<std::uint64_t>(other.position - one.position));
    if (shift > *different) return std::nullopt;
    return *different - shift;
}

// `full` has the first usage of a record in its first slot as well, and another or the same one in
// the second.
void PlaceFurtherSlots(RebuiltItem& item, const Json& record, const RecordedReport& first) {
    const UsageRange usages(record);
    const RecordedReport full(record.at("reports").at("full").get<std::string>());
    item.count = 1;
    const auto second = LowestDifference(first, full);
    if (!second) return;
    const std::uint64_t index = first.Bits(item.startBit, *second - item.startBit);
    const bool hasNext = usages.maximum > (std::max)(usages.minimum, std::uint16_t{1});
    item.bits = *second - item.startBit - LowestSetBit(hasNext ? index + 1 : index);
    if (item.bits == 0 || item.bits > kWidestSlot) return;
    for (std::size_t start = item.startBit + item.bits; full.Bits(start, item.bits) != 0;
         start += item.bits) {
        ++item.count;
    }
}

}  // namespace

bool PlaceArray(RebuiltItem& item) {
    const auto samples = SamplesOf(item);
    const auto start = samples ? StartOf(*samples) : std::nullopt;
    item.isPlaced = start.has_value();
    item.logicalMaximum = 0;  // that of an only usage whose index shows nowhere
    if (!start) return false;
    item.startBit = *start;
    const Sample& first = samples->front();
    const Sample& last = samples->back();
    const std::uint64_t lastIndex = last.report.Bits(*start, kWidestSlot);
    const std::size_t width = WidthOf(lastIndex);
    item.bits = *start % 8 == 0 ? (width + 7) / 8 * 8 : width;
    item.logicalMaximum = static_cast<std::int64_t>(lastIndex);
    item.logicalMinimum = item.logicalMaximum - last.position;
    const Json& record = *item.records.back();
    if (record.at("reports").value("full", Json()).is_string()) {
        PlaceFurtherSlots(item, record, first.report);
    }
    item.isPlaced = item.bits != 0 && item.bits <= kWidestSlot;
    return item.isPlaced;
}

}  // namespace recording
