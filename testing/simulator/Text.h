// Wide text as the simulator needs it: paths compared without case, and UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace simulator {

// Without the C locale, which the agent's tests may change. Two wide characters that are a pair of
// surrogates become one, stray ones U+FFFD.
std::string Utf8(std::wstring_view text);
std::wstring FoldCase(const std::wstring& text);

}  // namespace simulator
