// Wide text as UTF-8.
#pragma once

#include <string>

namespace vela {

// Half a surrogate pair, which the platform's texts may hold and UTF-8 cannot, becomes its number,
// as
// "\uD800". Any thread.
std::string Utf8(const std::wstring& text);

}  // namespace vela
