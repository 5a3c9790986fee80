#include "tools/velapanel/Canvas.h"

namespace velapanel {
namespace {

constexpr int kFactor = 2;

std::uint32_t Average(const std::uint32_t* row, std::size_t next) {
    std::uint32_t mean = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const auto part = [shift](std::uint32_t pixel) { return pixel >> shift & 0xFFU; };
        const std::uint32_t sum =
            part(row[0]) + part(row[1]) + part(row[next]) + part(row[next + 1]);
        mean |= (sum + 2) / 4 << shift;
    }
    return mean;
}

}  // namespace

void Canvas::Draw(const std::function<void(Gdiplus::Graphics&)>& draw) {
    const int largeWidth = width_ * kFactor;
    std::vector<std::uint32_t> large(static_cast<std::size_t>(largeWidth) *
                                     static_cast<std::size_t>(height_ * kFactor));
    {
        Gdiplus::Bitmap bitmap(largeWidth, height_ * kFactor, largeWidth * 4, PixelFormat32bppRGB,
                               reinterpret_cast<BYTE*>(large.data()));
        Gdiplus::Graphics graphics(&bitmap);
        graphics.ScaleTransform(kFactor, kFactor);
        draw(graphics);
    }
    pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    const auto stride = static_cast<std::size_t>(largeWidth);
    for (int y = 0; y < height_; ++y) {
        const std::uint32_t* row = large.data() + static_cast<std::size_t>(y * kFactor) * stride;
        std::uint32_t* to =
            pixels_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
        for (int x = 0; x < width_; ++x) {
            to[x] = Average(row + static_cast<std::size_t>(x * kFactor), stride);
        }
    }
}

Gdiplus::Color Canvas::At(int x, int y) const {
    const std::uint32_t pixel =
        pixels_.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                   static_cast<std::size_t>(x));
    return {0xFF000000U | pixel};
}

}  // namespace velapanel
