// An Input, Output or Feature item with all that was declared for it.
#pragma once

#include <cstdint>
#include <vector>

#include "testing/simulator/hid/GlobalItems.h"
#include "testing/simulator/hid/LocalItems.h"

namespace simulator::hid {

struct MainItem {
    enum Flags : std::uint16_t {
        kConstant = 0x01,
        kVariable = 0x02,
        kRelative = 0x04,
        kNullState = 0x40,
    };

    std::uint16_t flags = 0;
    GlobalItems globals;
    std::vector<DeclaredUsages> usages;
    USHORT linkCollection = 0;

    bool IsConstant() const { return (flags & kConstant) != 0; }
    bool IsArray() const { return (flags & kVariable) == 0; }
    bool IsButtons() const { return IsArray() || globals.reportSize == 1; }
};

}  // namespace simulator::hid
