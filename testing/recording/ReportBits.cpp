#include "testing/recording/ReportBits.h"

#include <algorithm>

namespace recording {

bool RecordedReport::Bit(std::size_t bit) const {
    return bit < BitCount() && (bytes_[1 + bit / 8] >> (bit % 8) & 1) != 0;
}

std::uint64_t RecordedReport::Bits(std::size_t start, std::size_t count) const {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < count; ++i) {
        bits |= static_cast<std::uint64_t>(Bit(start + i) ? 1 : 0) << i;
    }
    return bits;
}

std::optional<std::size_t> RecordedReport::LowestSetBit() const {
    return LowestDifference(*this, RecordedReport(""));
}

std::optional<std::size_t> LowestDifference(const RecordedReport& one,
                                            const RecordedReport& other) {
    const std::size_t count = std::max(one.BitCount(), other.BitCount());
    for (std::size_t bit = 0; bit < count; ++bit) {
        if (one.Bit(bit) != other.Bit(bit)) return bit;
    }
    return std::nullopt;
}

}  // namespace recording
