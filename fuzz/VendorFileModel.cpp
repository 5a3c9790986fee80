#include "fuzz/VendorFileModel.h"

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
    // Without a digit behind the "x" standard C reads the number 0 with something behind it (the
    // Windows runtime reads no number).
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

}  // namespace fuzz
