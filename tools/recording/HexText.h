// Numbers and bytes as hexadecimal text, as HID people write them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace recording {

using Bytes = std::vector<std::uint8_t>;

// Returns "0xff80": at least four digits.
std::string Hex(std::uint32_t number);
// Returns "02 00 ff".
std::string Hex(const Bytes& bytes);

// Return what the text stands for. Throw std::invalid_argument for another text.
std::uint32_t NumberOf(const std::string& hex);
Bytes BytesOf(const std::string& hex);

}  // namespace recording
