#include "testing/fuzz/VendorFileModel.h"

#include <cstdio>

namespace fuzz {
namespace {

std::optional<std::uint32_t> Digit(wchar_t letter) {
    if (letter >= L'0' && letter <= L'9') return letter - L'0';
    if (letter >= L'a' && letter <= L'f') return letter - L'a' + 10;
    if (letter >= L'A' && letter <= L'F') return letter - L'A' + 10;
    return std::nullopt;
}

bool IsBlank(wchar_t letter) { return letter == L' ' || (letter >= L'\t' && letter <= L'\r'); }

}  // namespace

std::optional<std::uint32_t> VendorIdOf(const std::wstring& sectionName) {
    const wchar_t* next = sectionName.c_str();
    while (IsBlank(*next)) ++next;
    const bool negative = *next == L'-';
    if (*next == L'-' || *next == L'+') ++next;
    // Without a digit after the "x" standard C parses the number 0, followed by text (the Windows
    // runtime parses no number).
    if (next[0] == L'0' && (next[1] == L'x' || next[1] == L'X') && Digit(next[2])) next += 2;
    if (!Digit(*next)) return std::nullopt;
    std::uint64_t number = 0;
    for (; const auto digit = Digit(*next); ++next) {
        number = number * 16 + *digit;
        if (number > 0xFFFFFFFF) return std::nullopt;
    }
    // A sign wraps the number around.
    return static_cast<std::uint32_t>(negative ? 0 - number : number);
}

std::string Utf8Of(const std::wstring& sectionName) {
    std::string text;
    const auto tail = [&text](std::uint32_t bits) {
        text += static_cast<char>(0x80 | (bits & 0x3F));
    };
    for (std::size_t i = 0; i < sectionName.size(); ++i) {
        const auto unit = static_cast<std::uint32_t>(sectionName[i]);
        const auto next = static_cast<std::uint32_t>(sectionName.c_str()[i + 1]);
        if (unit < 0x80) {
            text += static_cast<char>(unit);
        } else if (unit < 0x800) {
            text += static_cast<char>(0xC0 | unit >> 6);
            tail(unit);
        } else if (unit >> 11 != 0xD800 >> 11) {
            text += static_cast<char>(0xE0 | unit >> 12);
            tail(unit >> 6);
            tail(unit);
        } else if (unit < 0xDC00 && next >> 10 == 0xDC00 >> 10) {
            const std::uint32_t letter = 0x10000 + ((unit & 0x3FF) << 10 | (next & 0x3FF));
            text += static_cast<char>(0xF0 | letter >> 18);
            tail(letter >> 12);
            tail(letter >> 6);
            tail(letter);
            ++i;
        } else {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04X", unit);
            text += escaped;
        }
    }
    return text;
}

}  // namespace fuzz
