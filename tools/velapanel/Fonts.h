// The panel's two fonts, whichever of their kind this machine has.
#pragma once

#include "tools/velapanel/GdiPlus.h"

namespace velapanel {

enum class FontKind { Proportional, Fixed };

// In pixels. An unusable font, whose texts are left out, where the machine has none of them.
Gdiplus::Font MakeFont(FontKind kind, float size);

}  // namespace velapanel
