// The buttons' symbols.
#pragma once

#include "tools/velapanel/Action.h"
#include "tools/velapanel/GdiPlus.h"

namespace velapanel {

// Draws a symbol into a square, crossed out for a state of off.
void DrawSymbol(Gdiplus::Graphics& graphics, Action button, const Gdiplus::RectF& square,
                const Gdiplus::Color& colour, bool isCrossed);

}  // namespace velapanel
