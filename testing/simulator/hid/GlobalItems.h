// The global items: a table of values that stay in force until they are declared anew.
#pragma once

#include <cstdint>

#include <windows.h>
#include <hidpi.h>

#include "testing/simulator/hid/DescriptorItems.h"

namespace simulator::hid {

struct GlobalItems {
    USAGE usagePage = 0;
    std::uint8_t reportId = 0;  // 0: none
    std::uint32_t reportSize = 0;
    std::uint32_t reportCount = 0;
    std::int32_t logicalMinimum = 0;
    std::int32_t logicalMaximum = 1;  // recorded on Windows where none is declared
    std::int32_t physicalMinimum = 0;
    std::int32_t physicalMaximum = 0;
    std::uint32_t unit = 0;
    // The item's signed number: one byte 0xFD is -3, and the nibble 0x0D stays 13.
    std::int32_t unitExponent = 0;

    // Returns false when the item is not a global item of this table.
    bool Take(const Item& item);
};

}  // namespace simulator::hid
