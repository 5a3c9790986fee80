// Reads bits of a recorded report. Bit 0 is the lowest of the first byte behind the report id.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tools/recording/HexText.h"

namespace recording {

class RecordedReport {
 public:
    // `json` is a report of a recording; one that was refused has no bits set.
    explicit RecordedReport(const std::string& hex) : bytes_(BytesOf(hex)) {}

    bool Bit(std::size_t bit) const;
    // Reads up to 64 bits; those behind the end are 0.
    std::uint64_t Bits(std::size_t start, std::size_t count) const;
    std::size_t BitCount() const { return bytes_.empty() ? 0 : (bytes_.size() - 1) * 8; }
    std::optional<std::size_t> LowestSetBit() const;

 private:
    Bytes bytes_;
};

// Returns the lowest bit that differs.
std::optional<std::size_t> LowestDifference(const RecordedReport& one, const RecordedReport& other);

}  // namespace recording
