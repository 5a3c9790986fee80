#include "tools/velapanel/ButtonLook.h"

#include "tools/velapanel/Breathing.h"

namespace velapanel {
namespace {

// The usages of a button in the light report: its active bit and its lights.
struct LightUsages {
    std::uint16_t active;
    std::uint16_t on;
    std::uint16_t off;  // 0: it has one light
};

constexpr LightUsages kUsages[kButtonCount] = {
    {0x01, 0x20, 0x21}, {0x04, 0x26, 0x27}, {0x03, 0x24, 0}, {0x02, 0x22, 0}};

ButtonLook Lit(const Colour& colour, std::uint8_t brightness, const std::wstring& caption) {
    ButtonLook look;
    look.level = VisibleLevel(brightness);
    look.light = Blend(kDarkLight, colour, look.level);
    look.caption = caption + std::to_wstring(brightness);
    return look;
}

ButtonLook Dark(bool isActive) {
    ButtonLook look;
    look.light = kDarkLight;
    look.caption = isActive ? L"dark" : L"not active";
    return look;
}

ButtonLook Breathe(ButtonLook look, double seconds) {
    look.level *= BreathLevel(seconds);
    look.light = Blend(kDarkLight, kSingleLight, look.level);
    look.caption = L"breathing, " + look.caption;
    return look;
}

}  // namespace

ButtonLook LookOf(Action button, const virtual_touchpad::Lights& lights, double seconds) {
    const LightUsages& usages = kUsages[static_cast<std::size_t>(button)];
    const std::uint8_t on = lights.Brightness(usages.on);
    const bool isActive = lights.IsActive(usages.active);
    if (usages.off == 0) {
        if (on == 0) return Dark(isActive);
        const ButtonLook look = Lit(kSingleLight, on, L"lit ");
        const bool breathes = button == Action::Chat && lights.breathing != 0;
        return breathes ? Breathe(look, seconds) : look;
    }
    if (on != 0) return Lit(kOnLight, on, L"on ");
    const std::uint8_t off = lights.Brightness(usages.off);
    if (off == 0) return Dark(isActive);
    ButtonLook look = Lit(kOffLight, off, L"off ");
    look.isCrossed = true;
    return look;
}

}  // namespace velapanel
