// The items of a report descriptor (HID 1.11, section 6.2.2), one after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace simulator::hid {

// The prefix byte of a short item without its two size bits.
enum class ItemTag : std::uint8_t {
    Input = 0x80,
    Output = 0x90,
    Collection = 0xA0,
    Feature = 0xB0,
    EndCollection = 0xC0,

    UsagePage = 0x04,
    LogicalMinimum = 0x14,
    LogicalMaximum = 0x24,
    PhysicalMinimum = 0x34,
    PhysicalMaximum = 0x44,
    UnitExponent = 0x54,
    Unit = 0x64,
    ReportSize = 0x74,
    ReportId = 0x84,
    ReportCount = 0x94,
    Push = 0xA4,
    Pop = 0xB4,
    ReservedGlobal12 = 0xC4,
    ReservedGlobal13 = 0xD4,
    ReservedGlobal14 = 0xE4,
    ReservedGlobal15 = 0xF4,

    Usage = 0x08,
    UsageMinimum = 0x18,
    UsageMaximum = 0x28,
    DesignatorIndex = 0x38,
    DesignatorMinimum = 0x48,
    DesignatorMaximum = 0x58,
    StringIndex = 0x78,
    StringMinimum = 0x88,
    StringMaximum = 0x98,
    Delimiter = 0xA8,
};

struct Item {
    std::size_t offset = 0;
    ItemTag tag{};
    int size = 0;  // data bytes: 0, 1, 2 or 4
    std::uint32_t value = 0;

    // The data bytes read as a two's complement number of their own width.
    std::int32_t SignedValue() const;
    // Throws DescriptorError; its text begins with the item's offset.
    [[noreturn]] void Refuse(const std::string& why) const;
};

class DescriptorItems {
 public:
    explicit DescriptorItems(const std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}

    // Returns the next short item, or nothing at the end. Skips long items, of which the standard
    // defines none. Throws DescriptorError when the bytes end within an item.
    std::optional<Item> Next();

 private:
    void SkipLongItem();

    const std::vector<std::uint8_t>& bytes_;
    std::size_t offset_ = 0;
};

}  // namespace simulator::hid
