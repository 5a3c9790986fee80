// The places of everything on a panel of a given size.
#pragma once

#include <array>
#include <optional>

#include "tools/velapanel/Action.h"

namespace velapanel {

struct Box {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    float Right() const { return left + width; }
    float Bottom() const { return top + height; }
    bool Contains(float x, float y) const {
        return x >= left && x < Right() && y >= top && y < Bottom();
    }
};

// The smallest client area on which everything is readable.
constexpr int kMinimumWidth = 560;
constexpr int kMinimumHeight = 420;

struct PanelLayout {
    float scale = 1;  // of texts and lines
    Box surface;      // the touchpad
    std::array<Box, kButtonCount> buttons;
    Box haptic;
    std::array<Box, kKeyCount> keys;
    Box reports;

    const Box& BoxOf(Action action) const;
    std::optional<Action> ActionAt(float x, float y) const;
};

PanelLayout LayOut(int width, int height);

}  // namespace velapanel
