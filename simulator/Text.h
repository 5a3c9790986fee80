// Wide text as the simulator needs it: paths compared without case, and texts for records.
#pragma once

#include <string>

namespace simulator {

// Without the C locale, which the agent's tests may change. Stray surrogates become U+FFFD.
std::string Utf8(const wchar_t* text);
std::wstring FoldCase(const std::wstring& text);

}  // namespace simulator
