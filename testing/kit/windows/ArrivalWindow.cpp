#include "testing/kit/windows/ArrivalWindow.h"

#include <dbt.h>

extern "C" {
#include <hidsdi.h>
}

#include <stdexcept>
#include <utility>

namespace kit {
namespace {

constexpr wchar_t kClass[] = L"VelaArrivals";

}  // namespace

ArrivalWindow::ArrivalWindow(std::function<void(const std::wstring& path)> onArrival)
    : onArrival_(std::move(onArrival)) {
    thread_ = std::thread([this] { Run(); });
    window_ = created_.get_future().get();
    if (window_ != nullptr) return;
    thread_.join();
    throw std::runtime_error("there is no window that is notified of arrivals");
}

ArrivalWindow::~ArrivalWindow() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    thread_.join();
}

LRESULT CALLBACK ArrivalWindow::OnMessage(HWND window, UINT message, WPARAM what, LPARAM data) {
    const auto* const self =
        reinterpret_cast<const ArrivalWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && message == WM_DEVICECHANGE && what == DBT_DEVICEARRIVAL) {
        self->onArrival_(reinterpret_cast<const DEV_BROADCAST_DEVICEINTERFACE_W*>(data)->dbcc_name);
    }
    if (message == WM_CLOSE) {
        DestroyWindow(window);
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(window, message, what, data);
}

HWND ArrivalWindow::Create() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = OnMessage;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassExW(&windowClass);  // fails when an earlier object registered it
    const HWND window = CreateWindowExW(0, kClass, kClass, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                        windowClass.hInstance, nullptr);
    if (window == nullptr) return nullptr;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    DEV_BROADCAST_DEVICEINTERFACE_W filter{};
    filter.dbcc_size = sizeof(filter);
    filter.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
    HidD_GetHidGuid(&filter.dbcc_classguid);
    if (RegisterDeviceNotificationW(window, &filter, DEVICE_NOTIFY_WINDOW_HANDLE) != nullptr) {
        return window;
    }
    DestroyWindow(window);
    return nullptr;
}

void ArrivalWindow::Run() {
    const HWND window = Create();
    created_.set_value(window);
    if (window == nullptr) return;
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
}

}  // namespace kit
