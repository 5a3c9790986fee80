#include "testing/simulator/hid/DescriptorItems.h"

#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator::hid {
namespace {

constexpr std::uint8_t kLongItemPrefix = 0xFE;
constexpr std::uint8_t kSizeBits = 0x03;
constexpr int kSizes[] = {0, 1, 2, 4};
constexpr const char* kCutShort[] = {"", "ONE_BYTE", "TWO_BYTE", "FOUR_BYTE"};

}  // namespace

std::int32_t Item::SignedValue() const {
    switch (size) {
        case 1:
            return static_cast<std::int8_t>(value);
        case 2:
            return static_cast<std::int16_t>(value);
        default:
            return static_cast<std::int32_t>(value);
    }
}

void Item::Refuse(const std::string& why) const {
    throw DescriptorError("item at byte " + std::to_string(offset) + ": " + why);
}

std::optional<Item> DescriptorItems::Next() {
    while (offset_ < bytes_.size() && bytes_[offset_] == kLongItemPrefix) SkipLongItem();
    if (offset_ == bytes_.size()) return std::nullopt;

    const std::uint8_t prefix = bytes_[offset_];
    Item item;
    item.offset = offset_++;
    item.tag = static_cast<ItemTag>(prefix & ~kSizeBits);
    item.size = kSizes[prefix & kSizeBits];
    if (static_cast<std::size_t>(item.size) > bytes_.size() - offset_) {
        item.Refuse(std::string(kCutShort[prefix & kSizeBits]) + ": cut short");
    }
    for (int i = 0; i < item.size; ++i) {
        item.value |= static_cast<std::uint32_t>(bytes_[offset_++]) << (8 * i);
    }
    return item;
}

void DescriptorItems::SkipLongItem() {
    constexpr std::size_t kHeader = 3;  // prefix, data size, tag
    Item item;
    item.offset = offset_;
    const std::size_t rest = bytes_.size() - offset_;
    if (rest < kHeader || rest - kHeader < bytes_[offset_ + 1]) item.Refuse("long item cut short");
    offset_ += kHeader + bytes_[offset_ + 1];
}

}  // namespace simulator::hid
