#include "tools/velapanel/Snapshot.h"

#include <stdexcept>

namespace velapanel {
namespace {

// The class id of GDI+'s PNG encoder, the same on every machine.
constexpr CLSID kPngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

void Save(Gdiplus::Image& image, const std::filesystem::path& file) {
    const Gdiplus::Status status = image.Save(file.wstring().c_str(), &kPngEncoder, nullptr);
    if (status == Gdiplus::Ok) return;
    throw std::runtime_error("cannot write " + file.string() + " (GDI+ status " +
                             std::to_string(status) + ")");
}

}  // namespace

void SavePicture(const PanelView& view, int width, int height, const std::filesystem::path& file) {
    Canvas canvas(width, height);
    Paint(canvas, view);
    std::vector<std::uint32_t> pixels = canvas.Pixels();
    Gdiplus::Bitmap bitmap(width, height, width * 4, PixelFormat32bppRGB,
                           reinterpret_cast<BYTE*>(pixels.data()));
    Save(bitmap, file);
}

void SaveWindow(HWND window, const std::filesystem::path& file) {
    RECT area{};
    GetClientRect(window, &area);
    const HDC screen = GetDC(window);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP copy = CreateCompatibleBitmap(screen, area.right, area.bottom);
    const HGDIOBJ before = SelectObject(memory, copy);
    BitBlt(memory, 0, 0, area.right, area.bottom, screen, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
    ReleaseDC(window, screen);
    Gdiplus::Bitmap bitmap(copy, nullptr);
    DeleteObject(copy);
    Save(bitmap, file);
}

}  // namespace velapanel
