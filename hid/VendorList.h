// The vendor ids of an optional file "Vela.ini" beside the library: each section name is one, in
// hexadecimal.
#pragma once

#include <cstdint>
#include <vector>

namespace vela {

// Returns the ids in file order, duplicates kept; none when there is no such file or no section in
// it. A section name that is no 32-bit number is logged and skipped.
std::vector<std::uint32_t> GetVidsFromFile();

}  // namespace vela
