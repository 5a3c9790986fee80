// The panel in a process of its own, worked as a person would: its buttons by the mouse, the rest
// by keys, seen on the screen.
#pragma once

#include <windows.h>

#include <filesystem>

#include "tools/velapanel/Action.h"
#include "tools/velapanel/GdiPlus.h"

namespace demo {

class PanelProcess {
 public:
    // Returns when its window exists. Throws std::runtime_error when none appears.
    explicit PanelProcess(const std::filesystem::path& program);
    ~PanelProcess();  // closes the window
    PanelProcess(const PanelProcess&) = delete;
    PanelProcess& operator=(const PanelProcess&) = delete;

    void Press(velapanel::Action action);
    // Saves a picture of the window from the screen, after it has drawn earlier events.
    void SavePicture(const std::filesystem::path& file);

 private:
    velapanel::GdiPlusSession gdiPlus_;
    HANDLE process_ = nullptr;
    HWND window_ = nullptr;
};

}  // namespace demo
