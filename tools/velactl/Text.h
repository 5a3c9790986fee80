// Conversions of Windows' text and numbers for the tool's output, which is UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velactl {

std::string Utf8(const std::wstring& text);

// "0x0488": at least four digits.
std::string Hex(std::uint32_t number);

// "a, b, c"
std::string Joined(const std::vector<std::string>& items);

// "2026-05-06 17:42:10.123"
std::string LocalTime();

// Returns the system's message for an error, with its number.
std::string SystemErrorText(std::uint32_t error);

}  // namespace velactl
