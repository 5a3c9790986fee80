// A window that is never shown, with nothing but the system's own calls: it is notified of every
// HID interface that arrives.
#pragma once

#include <windows.h>

#include <functional>
#include <future>
#include <string>
#include <thread>

namespace kit {

class ArrivalWindow {
 public:
    // `onArrival` runs on the window's thread, with the interface's path. Throws std::runtime_error
    // when the system has no such window or does not notify it.
    explicit ArrivalWindow(std::function<void(const std::wstring& path)> onArrival);
    ~ArrivalWindow();
    ArrivalWindow(const ArrivalWindow&) = delete;
    ArrivalWindow& operator=(const ArrivalWindow&) = delete;

 private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM what, LPARAM data);
    HWND Create();
    void Run();

    const std::function<void(const std::wstring& path)> onArrival_;
    std::promise<HWND> created_;
    HWND window_ = nullptr;
    std::thread thread_;
};

}  // namespace kit
