// Draws the whole panel.
#pragma once

#include <optional>

#include "tools/velapanel/PanelLayout.h"
#include "tools/velapanel/PanelState.h"

#include "tools/velapanel/Canvas.h"

namespace velapanel {

struct PanelView {
    const PanelState& state;
    double breathSeconds = 0;       // since the chat light began to breathe
    std::optional<Action> focused;  // by keyboard
    std::wstring notice;            // error of the last action, if it failed
};

// The lamp below a button's symbol, which shows the colour of its light.
Box LampOf(const PanelLayout& layout, Action button);

void Paint(Canvas& canvas, const PanelView& view);

}  // namespace velapanel
