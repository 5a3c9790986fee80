// Which vendor ids a "Vela.ini" lists, by the rules for its section names alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace fuzz {

// A hexadecimal number at the begin of the name, as C reads an unsigned 32-bit one: blanks, a sign
// and "0x" may stand before it, anything behind it. Nothing when there is no digit, or too large a
// number.
std::optional<std::uint32_t> VendorIdOf(const std::wstring& sectionName);

// The name as the log shows it: UTF-8, and "\uD800" for half a surrogate pair without the other.
std::string Utf8Of(const std::wstring& sectionName);

}  // namespace fuzz
