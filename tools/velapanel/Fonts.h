// The panel's two fonts, the first available ones of their kind.
#pragma once

#include "tools/velapanel/GdiPlus.h"

namespace velapanel {

enum class FontKind { Proportional, Fixed };

// `size` is in pixels. The font is unusable, and its texts are missing, on a machine without any of
// them.
Gdiplus::Font MakeFont(FontKind kind, float size);

}  // namespace velapanel
