// Windows without a picture, and their messages.
#include <windows.h>

#include <dbt.h>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/Notifications.h"

using namespace simulator;

namespace {

constexpr DWORD kUnknownWindow = ERROR_INVALID_WINDOW_HANDLE;

}  // namespace

extern "C" {

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* unnamedParam1) {
    if (const auto fault = Enter("RegisterClassExW", Quoted(unnamedParam1->lpszClassName))) {
        return fault->Failed<ATOM>(0);
    }
    Notifications::Get().AddClass(unnamedParam1->lpszClassName, unnamedParam1->lpfnWndProc);
    return 1;
}

HWND WINAPI CreateWindowExW(DWORD, LPCWSTR lpClassName, LPCWSTR, DWORD, int, int, int, int,
                            HWND hWndParent, HMENU, HINSTANCE, LPVOID) {
    const auto arguments =
        Arguments(Quoted(lpClassName), hWndParent == HWND_MESSAGE ? "messages only" : "");
    if (const auto fault = Enter("CreateWindowExW", arguments)) {
        return fault->Failed<HWND>(nullptr);
    }
    const HWND window = Notifications::Get().CreateWindowOf(lpClassName);
    if (window == nullptr) return FailWith<HWND>(ERROR_CANNOT_FIND_WND_CLASS, nullptr);
    return window;
}

BOOL WINAPI DestroyWindow(HWND hWnd) {
    if (const auto fault = Enter("DestroyWindow", "")) return fault->Failed<BOOL>(FALSE);
    return ReportError(Notifications::Get().Destroy(hWnd) ? ERROR_SUCCESS : kUnknownWindow);
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND hWnd, int nIndex, LONG_PTR dwNewLong) {
    if (nIndex != GWLP_USERDATA) return FailWith<LONG_PTR>(ERROR_INVALID_PARAMETER, 0);
    LONG_PTR before = 0;
    if (!Notifications::Get().SetUserData(hWnd, dwNewLong, before)) SetLastError(kUnknownWindow);
    return before;
}

LONG_PTR WINAPI GetWindowLongPtrW(HWND hWnd, int nIndex) {
    if (nIndex != GWLP_USERDATA) return FailWith<LONG_PTR>(ERROR_INVALID_PARAMETER, 0);
    return Notifications::Get().UserData(hWnd);
}

LRESULT WINAPI DefWindowProcW(HWND, UINT, WPARAM, LPARAM) { return 0; }

BOOL WINAPI PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam) {
    if (const auto fault = Enter("PostMessageW", Hex(Msg))) return fault->Failed<BOOL>(FALSE);
    const bool posted = Notifications::Get().Post({hWnd, Msg, wParam, lParam, {}});
    return ReportError(posted ? ERROR_SUCCESS : kUnknownWindow);
}

void WINAPI PostQuitMessage(int nExitCode) { Notifications::Get().PostQuit(nExitCode); }

// Messages that are sent reach their window inside this call, as on the platform.
BOOL WINAPI GetMessageW(LPMSG lpMsg, HWND, UINT, UINT) {
    for (;;) {
        const Message message = Notifications::Get().Take();
        if (message.record.empty()) {
            *lpMsg = {message.window, message.id, message.what, message.data, 0, {}};
            return message.id != WM_QUIT;
        }
        const WNDPROC procedure = Notifications::Get().Procedure(message.window);
        if (procedure == nullptr) continue;
        procedure(message.window, message.id, message.what,
                  reinterpret_cast<LPARAM>(message.record.data()));
    }
}

LRESULT WINAPI DispatchMessageW(const MSG* lpMsg) {
    const WNDPROC procedure = Notifications::Get().Procedure(lpMsg->hwnd);
    if (procedure == nullptr) return 0;
    return procedure(lpMsg->hwnd, lpMsg->message, lpMsg->wParam, lpMsg->lParam);
}

}  // extern "C"
