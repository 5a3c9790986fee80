#include "testing/recording/ItemWriter.h"

namespace recording {

void ItemWriter::Write(ItemTag tag, std::int64_t value) {
    const bool fitsOne = value >= INT8_MIN && value <= INT8_MAX;
    const bool fitsTwo = value >= INT16_MIN && value <= INT16_MAX;
    WriteSized(tag, static_cast<std::uint32_t>(value), fitsOne ? 1 : fitsTwo ? 2 : 4);
}

void ItemWriter::WriteUsage(ItemTag tag, std::uint16_t page, std::uint16_t usage) {
    WriteSized(tag, static_cast<std::uint32_t>(page) << 16 | usage, 4);
}

void ItemWriter::EndCollection() { WriteSized(ItemTag::EndCollection, 0, 0); }

void ItemWriter::WriteSized(ItemTag tag, std::uint32_t value, int size) {
    const int sizeCode = size == 4 ? 3 : size;
    bytes_.push_back(static_cast<std::uint8_t>(static_cast<int>(tag) | sizeCode));
    for (int i = 0; i < size; ++i) bytes_.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

}  // namespace recording
