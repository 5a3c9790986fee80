// Writes the items of a report descriptor (HID 1.11, section 6.2.2).
#pragma once

#include <cstdint>

#include "testing/simulator/hid/DescriptorItems.h"
#include "tools/recording/HexText.h"

namespace recording {

using simulator::hid::ItemTag;

class ItemWriter {
 public:
    // Writes as few data bytes as the number takes, whether it is read as signed or not.
    void Write(ItemTag tag, std::int64_t value);
    // Writes a usage with its usage page.
    void WriteUsage(ItemTag tag, std::uint16_t page, std::uint16_t usage);
    void EndCollection();

    const Bytes& Written() const { return bytes_; }

 private:
    void WriteSized(ItemTag tag, std::uint32_t value, int size);

    Bytes bytes_;
};

}  // namespace recording
