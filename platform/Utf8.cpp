#include "platform/Utf8.h"

#include <windows.h>

namespace vela {
namespace {

bool IsHighSurrogate(wchar_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

bool IsLowSurrogate(wchar_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

std::wstring Escape(wchar_t unit) {
    constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
    std::wstring escaped = L"\\u";
    for (int shift = 12; shift >= 0; shift -= 4) escaped += kDigits[(unit >> shift) & 0xF];
    return escaped;
}

// The platform would convert all unpaired surrogates to the same replacement character.
std::wstring EscapeUnpairedSurrogates(const std::wstring& text) {
    std::wstring escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair =
            IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]);
        if (isPair) {
            escaped.append(text, i++, 2);
        } else if (IsHighSurrogate(text[i]) || IsLowSurrogate(text[i])) {
            escaped += Escape(text[i]);
        } else {
            escaped += text[i];
        }
    }
    return escaped;
}

}  // namespace

std::string Utf8(const std::wstring& text) {
    // WideCharToMultiByte refuses an empty text.
    if (text.empty()) return {};
    const std::wstring wide = EscapeUnpairedSurrogates(text);
    const int units = static_cast<int>(wide.size());
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

}  // namespace vela
