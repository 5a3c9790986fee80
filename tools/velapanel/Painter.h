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
    std::optional<Action> focused;  // by the keyboard
    std::wstring notice;            // why the last action failed, if it did
};

// The lamp below a button's symbol: where its light can be looked at.
Box LampOf(const PanelLayout& layout, Action button);

void Paint(Canvas& canvas, const PanelView& view);

}  // namespace velapanel
