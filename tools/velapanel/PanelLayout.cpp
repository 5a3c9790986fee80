#include "tools/velapanel/PanelLayout.h"

#include <algorithm>

namespace velapanel {
namespace {

// `count` boxes of a width side by side in a row.
template <std::size_t count>
std::array<Box, count> Row(const Box& row, float gap) {
    std::array<Box, count> boxes;
    const float width = (row.width - gap * (count - 1)) / count;
    for (std::size_t i = 0; i < count; ++i) {
        boxes[i] = {row.left + static_cast<float>(i) * (width + gap), row.top, width, row.height};
    }
    return boxes;
}

}  // namespace

const Box& PanelLayout::BoxOf(Action action) const {
    const auto index = static_cast<std::size_t>(action);
    return index < kButtonCount ? buttons[index] : keys[index - kButtonCount];
}

std::optional<Action> PanelLayout::ActionAt(float x, float y) const {
    for (const ActionInfo& info : kActions) {
        if (BoxOf(info.action).Contains(x, y)) return info.action;
    }
    return std::nullopt;
}

PanelLayout LayOut(int width, int height) {
    const auto w = static_cast<float>((std::max)(width, kMinimumWidth));
    const auto h = static_cast<float>((std::max)(height, kMinimumHeight));
    PanelLayout layout;
    layout.scale = (std::min)(w / 800, h / 600);
    const float gap = 14 * layout.scale;
    const float inner = w - 2 * gap;

    layout.surface = {gap, gap, inner, h * 0.50F};
    const Box onSurface{layout.surface.left + gap, layout.surface.top + gap, inner - 2 * gap,
                        layout.surface.height - 2 * gap};
    const float hapticHeight = 26 * layout.scale;
    layout.buttons = Row<kButtonCount>(
        {onSurface.left, onSurface.top, onSurface.width, onSurface.height - hapticHeight - gap},
        gap);
    layout.haptic = {onSurface.left, onSurface.Bottom() - hapticHeight, onSurface.width,
                     hapticHeight};
    const float keyHeight = 38 * layout.scale;
    layout.keys =
        Row<kKeyCount>({gap, layout.surface.Bottom() + gap, inner, keyHeight}, gap * 0.7F);
    const float reportsTop = layout.keys[0].Bottom() + gap;
    layout.reports = {gap, reportsTop, inner, h - gap - reportsTop};
    return layout;
}

}  // namespace velapanel
