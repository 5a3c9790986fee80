// Preparsed data of a descriptor's one top-level collection, made by the parser of the platform
// that the program is built for: the simulator's, or the system's hidparse.sys.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <windows.h>
// Not every toolchain's header says that these are C functions.
extern "C" {
#include <hidusage.h>
#include <hidpi.h>
}

namespace parity {

using PreparsedData = std::shared_ptr<_HIDP_PREPARSED_DATA>;

// Throws when the parser refuses the descriptor.
PreparsedData Parse(const std::vector<std::uint8_t>& descriptor);

}  // namespace parity
