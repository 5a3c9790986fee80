// Conversions of wide text: to UTF-8, and to lower case for comparing paths.
#pragma once

#include <string>
#include <string_view>

namespace simulator {

// Does not use the C locale, which the agent's tests may change. A surrogate pair becomes one
// character, a stray surrogate U+FFFD.
std::string Utf8(std::wstring_view text);
std::wstring FoldCase(const std::wstring& text);

}  // namespace simulator
