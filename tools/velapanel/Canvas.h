// A bitmap that is drawn at twice its size and then scaled down, for smooth edges everywhere:
// Wine's GDI+ has no antialiasing.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "tools/velapanel/GdiPlus.h"

namespace velapanel {

class Canvas {
 public:
    Canvas(int width, int height) : width_(width), height_(height) {}

    // `draw` uses the coordinates of the final size.
    void Draw(const std::function<void(Gdiplus::Graphics&)>& draw);

    int Width() const { return width_; }
    int Height() const { return height_; }
    // 0x00RRGGBB, rows from the top.
    const std::vector<std::uint32_t>& Pixels() const { return pixels_; }
    Gdiplus::Color At(int x, int y) const;

 private:
    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
};

}  // namespace velapanel
