// The buttons' symbols.
#pragma once

#include "tools/velapanel/Action.h"
#include "tools/velapanel/GdiPlus.h"

namespace velapanel {

// Draws it into a square; crossed out when it is for something that is off.
void DrawSymbol(Gdiplus::Graphics& graphics, Action button, const Gdiplus::RectF& square,
                const Gdiplus::Color& colour, bool isCrossed);

}  // namespace velapanel
