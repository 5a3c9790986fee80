// Converts wide text to UTF-8.
#pragma once

#include <string>

namespace vela {

// Escapes an unpaired surrogate, which the platform's texts may hold and UTF-8 cannot, as its
// number: "\uD800". Any thread may call it.
std::string Utf8(const std::wstring& text);

}  // namespace vela
