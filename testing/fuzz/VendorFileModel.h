// Models which vendor ids the section names of a "Vela.ini" stand for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace fuzz {

// Returns the hexadecimal number at the start of the name, as C parses an unsigned 32-bit one:
// blanks, a sign and "0x" may precede it, anything may follow. Nothing when there is no digit or
// the number is too large.
std::optional<std::uint32_t> VendorIdOf(const std::wstring& sectionName);

// Returns the name as the log shows it: in UTF-8, an unpaired surrogate as "\uD800".
std::string Utf8Of(const std::wstring& sectionName);

}  // namespace fuzz
