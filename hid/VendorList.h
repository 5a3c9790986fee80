// The vendor ids of an optional file "Vela.ini" beside the library: each section name is one, in
// hexadecimal.
#pragma once

#include <cstdint>
#include <vector>

namespace vela {

// In file order, duplicates kept. Empty when there is no such file or no section in it. A section
// name that is no number of 32 bits costs one log line and is skipped.
std::vector<std::uint32_t> GetVidsFromFile();

}  // namespace vela
