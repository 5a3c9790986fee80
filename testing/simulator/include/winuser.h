// Windows that receive messages, and what the system notifies them of.
#pragma once

#include <minwindef.h>

#define WM_DESTROY 0x0002u
#define WM_CLOSE 0x0010u
#define WM_QUIT 0x0012u
#define WM_POWERBROADCAST 0x0218u
#define WM_DEVICECHANGE 0x0219u
#define WM_APP 0x8000u

#define PBT_APMSUSPEND 0x0004u
#define PBT_APMRESUMESUSPEND 0x0007u
#define PBT_APMRESUMEAUTOMATIC 0x0012u

#define GWLP_USERDATA (-21)
#define HWND_MESSAGE ((HWND)(LONG_PTR)-3)

#define DEVICE_NOTIFY_WINDOW_HANDLE 0x00000000u
#define DEVICE_NOTIFY_CALLBACK 0x00000002u

typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;
typedef WORD ATOM;
typedef HANDLE HICON, HCURSOR, HBRUSH, HMENU, HDEVNOTIFY, HPOWERNOTIFY;
typedef LRESULT(CALLBACK* WNDPROC)(HWND, UINT, WPARAM, LPARAM);

typedef struct tagWNDCLASSEXW {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
    HICON hIconSm;
} WNDCLASSEXW;

typedef struct tagPOINT {
    LONG x;
    LONG y;
} POINT;

typedef struct tagMSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
} MSG, *LPMSG;

static_assert(sizeof(WNDCLASSEXW) == 80);
static_assert(sizeof(MSG) == 48);

extern "C" {

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* unnamedParam1);
HWND WINAPI CreateWindowExW(DWORD dwExStyle, LPCWSTR lpClassName, LPCWSTR lpWindowName,
                            DWORD dwStyle, int X, int Y, int nWidth, int nHeight, HWND hWndParent,
                            HMENU hMenu, HINSTANCE hInstance, LPVOID lpParam);
BOOL WINAPI DestroyWindow(HWND hWnd);
LONG_PTR WINAPI SetWindowLongPtrW(HWND hWnd, int nIndex, LONG_PTR dwNewLong);
LONG_PTR WINAPI GetWindowLongPtrW(HWND hWnd, int nIndex);
LRESULT WINAPI DefWindowProcW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
BOOL WINAPI PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
void WINAPI PostQuitMessage(int nExitCode);
BOOL WINAPI GetMessageW(LPMSG lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax);
LRESULT WINAPI DispatchMessageW(const MSG* lpMsg);

HDEVNOTIFY WINAPI RegisterDeviceNotificationW(HANDLE hRecipient, LPVOID NotificationFilter,
                                              DWORD Flags);
HPOWERNOTIFY WINAPI RegisterSuspendResumeNotification(HANDLE hRecipient, DWORD Flags);

}  // extern "C"
