// Pictures of the panel as PNG files.
#pragma once

#include <filesystem>

#include "tools/velapanel/Painter.h"

namespace velapanel {

// Both throw std::runtime_error with a message of one line when the file cannot be written.

// Draws the panel at this size.
void SavePicture(const PanelView& view, int width, int height, const std::filesystem::path& file);
// Copies a window's client area from the screen.
void SaveWindow(HWND window, const std::filesystem::path& file);

}  // namespace velapanel
