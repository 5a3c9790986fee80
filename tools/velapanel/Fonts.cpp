#include "tools/velapanel/Fonts.h"

namespace velapanel {
namespace {

// Fonts of Windows first, then those of Wine on Debian.
constexpr const wchar_t* kProportional[] = {L"Segoe UI", L"Tahoma", L"DejaVu Sans"};
constexpr const wchar_t* kFixed[] = {L"Consolas", L"Courier New", L"DejaVu Sans Mono"};

template <std::size_t count>
const wchar_t* FirstAvailable(const wchar_t* const (&names)[count]) {
    for (const wchar_t* name : names) {
        if (Gdiplus::FontFamily(name).IsAvailable()) return name;
    }
    return names[count - 1];
}

const wchar_t* NameOf(FontKind kind) {
    static const wchar_t* const proportional = FirstAvailable(kProportional);
    static const wchar_t* const fixed = FirstAvailable(kFixed);
    return kind == FontKind::Fixed ? fixed : proportional;
}

}  // namespace

Gdiplus::Font MakeFont(FontKind kind, float size) {
    const Gdiplus::FontFamily family(NameOf(kind));
    return {&family, size, Gdiplus::FontStyleRegular, Gdiplus::UnitPixel};
}

}  // namespace velapanel
