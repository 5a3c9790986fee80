// Pictures of the panel as PNG files.
#pragma once

#include <filesystem>

#include "tools/velapanel/Painter.h"

namespace velapanel {

// Both throw std::runtime_error with one line when the file cannot be written.

// As the panel is drawn at this size.
void SavePicture(const PanelView& view, int width, int height, const std::filesystem::path& file);
// As a window's client area looks on the screen just now.
void SaveWindow(HWND window, const std::filesystem::path& file);

}  // namespace velapanel
