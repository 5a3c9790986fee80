// The panel's window: mouse, keyboard, timer, and drawing without flicker.
#pragma once

#include <chrono>

#include "tools/velapanel/DeviceWatch.h"
#include "tools/velapanel/Painter.h"

namespace velapanel {

constexpr wchar_t kWindowClass[] = L"VelaPanel";

class PanelWindow {
 public:
    explicit PanelWindow(DeviceWatch& watch) : watch_(watch) {}

    // Shows the window and returns when it was closed.
    void Run();

 private:
    using Clock = std::chrono::steady_clock;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow);
    LRESULT Handle(UINT message, WPARAM wide, LPARAM narrow);
    void Draw();
    void OnTimer();
    void OnKey(WPARAM key);
    void MoveFocus(int step);
    void Do(Action action);
    PanelView View() const;

    DeviceWatch& watch_;
    HWND window_ = nullptr;
    std::optional<Action> focused_;
    std::wstring notice_;
    Clock::time_point breathBegan_ = Clock::now();
    bool breathed_ = false;
};

}  // namespace velapanel
