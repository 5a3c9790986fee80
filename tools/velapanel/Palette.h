// The panel's colours, and the visible brightness of lights.
#pragma once

#include <cmath>
#include <cstdint>

#include "tools/velapanel/GdiPlus.h"

namespace velapanel {

using Colour = Gdiplus::Color;

inline const Colour kBackground(255, 32, 34, 38);
inline const Colour kSurface(255, 52, 55, 61);
inline const Colour kSurfaceEdge(255, 84, 88, 96);
inline const Colour kButtonFace(255, 40, 42, 47);
inline const Colour kKeyFace(255, 66, 70, 78);
inline const Colour kText(255, 232, 234, 238);
inline const Colour kQuietText(255, 158, 163, 172);
inline const Colour kFocus(255, 92, 158, 255);

// The lights: on and off (camera and microphone), and the single ones of the other buttons.
inline const Colour kOnLight(255, 72, 220, 120);
inline const Colour kOffLight(255, 255, 84, 72);
inline const Colour kSingleLight(255, 255, 214, 96);
inline const Colour kDarkLight(255, 74, 77, 84);

// Returns 0 (dark) to 1. The eye perceives dim lights as brighter than their energy, so even the
// dimmest is well above 0.
inline double VisibleLevel(std::uint8_t brightness) {
    return brightness == 0 ? 0 : 0.3 + 0.7 * std::sqrt(brightness / 255.0);
}

inline Colour Blend(const Colour& from, const Colour& to, double part) {
    const auto mix = [part](BYTE a, BYTE b) {
        return static_cast<BYTE>(std::lround(a + (b - a) * part));
    };
    return {255, mix(from.GetR(), to.GetR()), mix(from.GetG(), to.GetG()),
            mix(from.GetB(), to.GetB())};
}

}  // namespace velapanel
