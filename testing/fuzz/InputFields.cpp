#include "testing/fuzz/InputFields.h"

#include <algorithm>

namespace fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Bits after the end of a short report are 0.
std::uint32_t Bits(const Bytes& report, std::size_t first, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t bit = first + i;
        if (bit / 8 >= report.size()) break;
        value |= (report[bit / 8] >> bit % 8 & 1U) << i;
    }
    return value;
}

void AddUsages(const Bytes& report, const UsageField& field, std::vector<std::uint16_t>& usages) {
    for (std::size_t i = 0; i < field.count; ++i) {
        const std::uint32_t value = Bits(report, field.firstBit + i * field.bits, field.bits);
        if (value == 0) continue;
        if (field.slotUsages == 0) {
            usages.push_back(static_cast<std::uint16_t>(field.firstUsage + i));
        } else if (value <= field.slotUsages) {
            usages.push_back(static_cast<std::uint16_t>(field.firstUsage + value - 1));
        }
    }
}

}  // namespace

std::optional<InputReport> InputFields::Read(const Bytes& report) const {
    const std::uint8_t id = report[0];
    InputReport read{id, {}, 0};
    bool hasUsages = false;
    for (const UsageField& field : usages) {
        if (id != 0 && id != field.reportId) continue;
        hasUsages = true;
        AddUsages(report, field, read.usages);
    }
    if (!hasUsages) return std::nullopt;
    std::sort(read.usages.begin(), read.usages.end());
    const auto state = std::find_if(states.begin(), states.end(), [id](const StateField& field) {
        return id == 0 || id == field.reportId;
    });
    if (state != states.end()) read.firmwareState = Bits(report, state->firstBit, state->bits);
    return read;
}

}  // namespace fuzz
