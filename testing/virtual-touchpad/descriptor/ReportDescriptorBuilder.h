// Writes HID report descriptors item by item, with the names of the HID standard (USB Device Class
// Definition for HID 1.11, section 6.2.2).
#pragma once

#include <cstdint>
#include <vector>

namespace virtual_touchpad {

enum class MainItem : std::uint8_t { Input = 0x80, Output = 0x90, Feature = 0xB0 };

// Bits of a main item's data byte.
enum MainItemFlags : std::uint8_t {
    kDataArray = 0x00,
    kConstant = 0x01,
    kDataVariable = 0x02,
};

enum class CollectionKind : std::uint8_t { Physical = 0x00, Application = 0x01, Logical = 0x02 };

class ReportDescriptorBuilder {
 public:
    using Self = ReportDescriptorBuilder;

    Self& UsagePage(std::uint16_t page) { return Item(0x04, page); }
    Self& LogicalMinimum(std::uint32_t value) { return Item(0x14, value); }
    // Uses enough bytes that the value's top bit is never read as a sign.
    Self& LogicalMaximum(std::uint32_t value) { return SignedItem(0x24, value); }
    Self& ReportSize(std::uint32_t bits) { return Item(0x74, bits); }
    Self& ReportId(std::uint8_t id) { return Item(0x84, id); }
    Self& ReportCount(std::uint32_t count) { return Item(0x94, count); }

    Self& Usage(std::uint16_t usage) { return Item(0x08, usage); }
    Self& UsageMinimum(std::uint16_t usage) { return Item(0x18, usage); }
    Self& UsageMaximum(std::uint16_t usage) { return Item(0x28, usage); }

    Self& Collection(CollectionKind kind) { return Item(0xA0, static_cast<std::uint8_t>(kind)); }
    Self& EndCollection() { return Raw({0xC0}); }
    Self& Main(MainItem item, std::uint8_t flags) {
        return Item(static_cast<std::uint8_t>(item), flags);
    }

    // Shorthands for whole fields.
    // One variable field: `bits` wide, unsigned, 0 to `maximum`.
    Self& Value(MainItem item, std::uint16_t usage, std::uint32_t bits, std::uint32_t maximum) {
        return LogicalMinimum(0)
            .LogicalMaximum(maximum)
            .ReportSize(bits)
            .ReportCount(1)
            .Usage(usage)
            .Main(item, kDataVariable);
    }
    // One-bit buttons for the usages `first` to `last`.
    Self& Buttons(MainItem item, std::uint16_t first, std::uint16_t last) {
        return LogicalMinimum(0)
            .LogicalMaximum(1)
            .ReportSize(1)
            .ReportCount(static_cast<std::uint32_t>(last - first + 1))
            .UsageMinimum(first)
            .UsageMaximum(last)
            .Main(item, kDataVariable);
    }
    Self& Padding(MainItem item, std::uint32_t bits) {
        return ReportSize(1).ReportCount(bits).Main(item, kConstant);
    }

    Self& Raw(const std::vector<std::uint8_t>& bytes) {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return *this;
    }

    const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

 private:
    Self& Item(std::uint8_t prefix, std::uint32_t value) {
        return Sized(prefix, value, value <= 0xFF ? 1 : value <= 0xFFFF ? 2 : 4);
    }
    Self& SignedItem(std::uint8_t prefix, std::uint32_t value) {
        return Sized(prefix, value, value <= 0x7F ? 1 : value <= 0x7FFF ? 2 : 4);
    }
    Self& Sized(std::uint8_t prefix, std::uint32_t value, int size) {
        const std::uint8_t sizeCode = size == 4 ? 3 : static_cast<std::uint8_t>(size);
        bytes_.push_back(static_cast<std::uint8_t>(prefix | sizeCode));
        for (int i = 0; i < size; ++i) {
            bytes_.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
        }
        return *this;
    }

    std::vector<std::uint8_t> bytes_;
};

}  // namespace virtual_touchpad
