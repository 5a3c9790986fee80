#include "testing/simulator/Text.h"

#include <algorithm>
#include <cstdint>
#include <cwctype>

namespace simulator {
namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;

bool IsHighHalf(std::uint32_t value) { return value >= 0xD800 && value <= 0xDBFF; }

bool IsLowHalf(std::uint32_t value) { return value >= 0xDC00 && value <= 0xDFFF; }

bool IsCodePoint(std::uint32_t value) {
    return value <= 0x10FFFF && !IsHighHalf(value) && !IsLowHalf(value);
}

// Removes the first character, or surrogate pair, from the text and returns its code point.
std::uint32_t TakeCodePoint(std::wstring_view& text) {
    const std::uint32_t value{static_cast<char32_t>(text[0])};
    const std::uint32_t next{text.size() > 1 ? static_cast<char32_t>(text[1]) : 0};
    const bool isPair = IsHighHalf(value) && IsLowHalf(next);
    text.remove_prefix(isPair ? 2 : 1);
    if (isPair) return 0x10000 + ((value & 0x3FF) << 10) + (next & 0x3FF);
    return IsCodePoint(value) ? value : kReplacement;
}

void AppendUtf8(std::string& out, std::uint32_t codePoint) {
    const auto append = [&out](std::uint32_t byte) { out += static_cast<char>(byte); };
    const auto tail = [&](int shift) { append(0x80 | ((codePoint >> shift) & 0x3F)); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0 | (codePoint >> 6));
        tail(0);
    } else if (codePoint < 0x10000) {
        append(0xE0 | (codePoint >> 12));
        tail(6);
        tail(0);
    } else {
        append(0xF0 | (codePoint >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace

std::string Utf8(std::wstring_view text) {
    std::string out;
    while (!text.empty()) AppendUtf8(out, TakeCodePoint(text));
    return out;
}

std::wstring FoldCase(const std::wstring& text) {
    std::wstring folded = text;
    std::transform(folded.begin(), folded.end(), folded.begin(), [](wchar_t character) {
        return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
    });
    return folded;
}

}  // namespace simulator
