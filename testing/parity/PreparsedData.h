// Preparsed data of a descriptor's only top-level collection, from the parser of the platform that
// the program is built for: the simulator's, or the system's hidparse.sys.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <windows.h>
// Some toolchains' headers do not declare these as C functions.
extern "C" {
#include <hidusage.h>
#include <hidpi.h>
}

namespace parity {

using PreparsedData = std::shared_ptr<_HIDP_PREPARSED_DATA>;

// Throws when the parser refuses the descriptor.
PreparsedData Parse(const std::vector<std::uint8_t>& descriptor);

}  // namespace parity
