#include "tools/velapanel/PanelWindow.h"

#include <windowsx.h>

#include <stdexcept>

namespace velapanel {
namespace {

constexpr UINT_PTR kTimer = 1;
constexpr UINT kTimerMilliseconds = 33;
constexpr int kFirstWidth = 960;
constexpr int kFirstHeight = 720;

SIZE WindowSizeFor(int clientWidth, int clientHeight) {
    RECT area{0, 0, clientWidth, clientHeight};
    AdjustWindowRect(&area, WS_OVERLAPPEDWINDOW, FALSE);
    return {area.right - area.left, area.bottom - area.top};
}

}  // namespace

void PanelWindow::Run() {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    windowClass.lpszClassName = kWindowClass;
    RegisterClassExW(&windowClass);

    const SIZE size = WindowSizeFor(kFirstWidth, kFirstHeight);
    if (CreateWindowExW(0, kWindowClass, L"Virtual touchpad", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                        CW_USEDEFAULT, CW_USEDEFAULT, size.cx, size.cy, nullptr, nullptr, instance,
                        this) == nullptr) {
        throw std::runtime_error("no window can be shown; is there a display?");
    }
    SetTimer(window_, kTimer, kTimerMilliseconds, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

LRESULT CALLBACK PanelWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM narrow) {
    if (message == WM_NCCREATE) {
        auto* const self = static_cast<PanelWindow*>(
            reinterpret_cast<const CREATESTRUCTW*>(narrow)->lpCreateParams);
        self->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* const self = reinterpret_cast<PanelWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, wide, narrow);
    return self->Handle(message, wide, narrow);
}

LRESULT PanelWindow::Handle(UINT message, WPARAM wide, LPARAM narrow) {
    switch (message) {
        case WM_PAINT:
            Draw();
            return 0;
        case WM_ERASEBKGND:
            return 1;  // everything is drawn at once
        case WM_SIZE:
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_TIMER:
            OnTimer();
            return 0;
        case WM_LBUTTONDOWN: {
            RECT area{};
            GetClientRect(window_, &area);
            const auto action = LayOut(area.right, area.bottom)
                                    .ActionAt(static_cast<float>(GET_X_LPARAM(narrow)),
                                              static_cast<float>(GET_Y_LPARAM(narrow)));
            if (action) Do(*action);
            return 0;
        }
        case WM_KEYDOWN:
            OnKey(wide);
            return 0;
        case WM_GETMINMAXINFO: {
            const SIZE least = WindowSizeFor(kMinimumWidth, kMinimumHeight);
            reinterpret_cast<MINMAXINFO*>(narrow)->ptMinTrackSize = {least.cx, least.cy};
            return 0;
        }
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window_, message, wide, narrow);
    }
}

PanelView PanelWindow::View() const {
    const std::chrono::duration<double> breath = Clock::now() - breathBegan_;
    return {watch_.State(), breath.count(), focused_, notice_};
}

// Draws into a bitmap first to avoid flicker.
void PanelWindow::Draw() {
    RECT area{};
    GetClientRect(window_, &area);
    PAINTSTRUCT paint;
    const HDC screen = BeginPaint(window_, &paint);
    if (area.right > 0 && area.bottom > 0) {
        Canvas canvas(area.right, area.bottom);
        Paint(canvas, View());
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = area.right;
        info.bmiHeader.biHeight = -area.bottom;  // rows from the top
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        SetDIBitsToDevice(screen, 0, 0, static_cast<DWORD>(area.right),
                          static_cast<DWORD>(area.bottom), 0, 0, 0, static_cast<UINT>(area.bottom),
                          canvas.Pixels().data(), &info, DIB_RGB_COLORS);
    }
    EndPaint(window_, &paint);
}

void PanelWindow::OnTimer() {
    watch_.Refresh();
    const bool breathes = watch_.State().lights.breathing != 0;
    if (breathes && !breathed_) breathBegan_ = Clock::now();
    breathed_ = breathes;
    InvalidateRect(window_, nullptr, FALSE);
}

void PanelWindow::OnKey(WPARAM key) {
    if (key == VK_TAB) return MoveFocus(GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
    if ((key == VK_SPACE || key == VK_RETURN) && focused_) return Do(*focused_);
    for (const ActionInfo& info : kActions) {
        // The codes of letter and digit keys are the characters on them.
        if (key == static_cast<WPARAM>(info.key)) return Do(info.action);
    }
}

void PanelWindow::MoveFocus(int step) {
    const int count = static_cast<int>(kActions.size());
    const int from = focused_ ? static_cast<int>(*focused_) : (step > 0 ? -1 : 0);
    focused_ = static_cast<Action>((from + step + count) % count);
    InvalidateRect(window_, nullptr, FALSE);
}

void PanelWindow::Do(Action action) {
    try {
        watch_.Do(action);
        notice_.clear();
    } catch (const std::runtime_error& error) {
        const std::string text = error.what();
        notice_.assign(text.begin(), text.end());
    }
    InvalidateRect(window_, nullptr, FALSE);
}

}  // namespace velapanel
