// Wide text as UTF-8.
#pragma once

#include <string>

namespace vela {

// Of half a surrogate pair, which the platform's texts may hold and UTF-8 cannot, the number stands
// there as "\uD800". Any thread.
std::string Utf8(const std::wstring& text);

}  // namespace vela
