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
    // Returns when its window is there. Throws std::runtime_error when it does not come.
    explicit PanelProcess(const std::filesystem::path& program);
    ~PanelProcess();  // closes the window
    PanelProcess(const PanelProcess&) = delete;
    PanelProcess& operator=(const PanelProcess&) = delete;

    void Press(velapanel::Action action);
    // Of the window as it is on the screen once it has drawn what happened before.
    void SavePicture(const std::filesystem::path& file);

 private:
    velapanel::GdiPlusSession gdiPlus_;
    HANDLE process_ = nullptr;
    HWND window_ = nullptr;
};

}  // namespace demo
