/* A host to copy from that survives an unplug, a replug and the machine's sleep: after each of them
 * it opens the touchpad again and sets what it wants of it. In C++ VelaAgentWatch.hpp does that.
 *
 *   recover LOGDIRECTORY
 *
 * The directory is absolute, exists, and only the user can write to it. Ctrl+C ends the host. It
 * prints "found", "lost", "held by another program", and the presses. */
#include <windows.h>

#include <dbt.h>
#include <stdio.h>

#include "VelaAgent.h"

enum { WM_PRESS = WM_APP, SETTLING = 50 /* ms */, MOST_TRIES = 9 /* in 13 seconds */ };

/* The class of all HID interfaces, as documented for HidD_GetHidGuid. */
static const GUID hid_interfaces = {
    0x4D1E55B2, 0xF16F, 0x11CF, {0x88, 0xCB, 0x00, 0x11, 0x11, 0x00, 0x00, 0x30}};

/* What the host wants of the touchpad: four lit buttons, and the chat's breathes. The window's
 * thread changes it, here and by the function for it; presses change lights on a library thread. */
static struct {
    uint32_t activation, brightness;
    VELA_BOOL feature;
    volatile LONG chat_breathes;
    struct {
        VELA_BOOL enabled, visible;
        volatile LONG light;
    } buttons[4];
} wishes = {VELA_ACTIVE, 3, 1, 1, {{1, 1, 0}, {1, 1, 0}, {1, 1, 0}, {1, 1, 0}}};

static HWND window;
static int is_open, tries; /* tries that failed since the last notification */

/* Posts to the window's thread: UnInit, which that thread calls, waits for this function. */
static void on_press(uint32_t button, uint32_t new_light) {
    const int toggles = button <= VELA_BUTTON_MICROPHONE && wishes.activation == VELA_ACTIVE;
    if (toggles) wishes.buttons[button].light = (LONG)new_light;
    PostMessageW(window, WM_PRESS, button, (LPARAM)new_light);
}

/* A disable ends the chat's breathing (convention 9 of the header). */
static void on_status(uint32_t status) {
    if (status == VELA_STATUS_TEMPORARILY_DISABLED) wishes.chat_breathes = 0;
    if (status == VELA_STATUS_DISABLED) wishes.chat_breathes = 0;
}

static void set_wishes(void) {
    SetVelaButtonPressCallback(on_press);
    SetVelaStatusChangeCallback(on_status);
    SetVelaBrightness(wishes.brightness);
    Activate(wishes.activation);
    for (uint32_t button = 0; button < 4; ++button) {
        SetButtonLight(button, wishes.buttons[button].light); /* before a press may change it */
        SetButtonVisible(button, wishes.buttons[button].visible);
        EnableSingleButton(button, wishes.buttons[button].enabled);
    }
    EnableFeature(0); /* ends a gesture's disable, which the library keeps */
    UpdateVelaState();
    EnableFeature(wishes.feature);
    EnableChatBreathing(1);
    SetButtonBreathing(VELA_BUTTON_CHAT, wishes.chat_breathes);
}

/* A failed try is followed by others, after pauses that double. */
static void reopen(void) {
    static int32_t result; /* of the last try */
    const int was_open = is_open;
    const int is_known = tries > 0 && result == VELA_INIT_HELD_BY_OTHER;
    KillTimer(window, 1);
    UnInit();
    result = Init();
    is_open = result == VELA_INIT_OPEN;
    if (is_open) set_wishes();
    if (is_open != was_open) puts(is_open ? "found" : "lost");
    if (result == VELA_INIT_HELD_BY_OTHER && !is_known) puts("held by another program");
    if (!is_open && ++tries < MOST_TRIES) SetTimer(window, 1, SETTLING << (tries - 1), NULL);
}

/* A device has several interfaces: each of their notifications puts the opening off. */
static void reopen_soon(void) {
    tries = 0;
    SetTimer(window, 1, SETTLING, NULL);
}

/* The chat was read when its button is pressed. */
static void show_press(WPARAM button, LPARAM new_light) {
    static const char* const names[] = {"camera", "microphone", "chat", "share screen"};
    printf("%s pressed, light %s\n", names[button], new_light ? "on" : "off");
    if (button != VELA_BUTTON_CHAT) return;
    wishes.chat_breathes = 0;
    SetButtonBreathing(VELA_BUTTON_CHAT, 0);
}

static LRESULT CALLBACK on_message(HWND self, UINT message, WPARAM what, LPARAM data) {
    /* What leaves may be another HID device: then the lights are dark for a moment. */
    const WPARAM change = is_open ? DBT_DEVICEREMOVECOMPLETE : DBT_DEVICEARRIVAL;
    if (message == WM_DEVICECHANGE && what == change) reopen_soon();
    if (message == WM_POWERBROADCAST && what == PBT_APMRESUMEAUTOMATIC) reopen_soon();
    if (message == WM_TIMER) reopen();
    if (message == WM_PRESS) show_press(what, data);
    if (message != WM_CLOSE) return DefWindowProcW(self, message, what, data);
    PostQuitMessage(0);
    return 0;
}

/* A window that is never shown, on the thread that calls the library. */
static int create_window(void) {
    typedef HANDLE(WINAPI * Notify)(HANDLE, DWORD);
    const Notify notify_of_resume = (Notify)(void (*)(void))GetProcAddress(
        GetModuleHandleW(L"user32.dll"), "RegisterSuspendResumeNotification"); /* Windows 8 */
    const WNDCLASSW class = {.lpfnWndProc = on_message, .lpszClassName = L"VelaRecover"};
    DEV_BROADCAST_DEVICEINTERFACE_W filter = {.dbcc_size = sizeof(filter),
                                              .dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE,
                                              .dbcc_classguid = hid_interfaces};
    RegisterClassW(&class);
    window = CreateWindowW(L"VelaRecover", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, NULL, NULL, NULL);
    if (notify_of_resume != NULL) notify_of_resume(window, DEVICE_NOTIFY_WINDOW_HANDLE);
    return RegisterDeviceNotificationW(window, &filter, DEVICE_NOTIFY_WINDOW_HANDLE) != NULL;
}

static BOOL WINAPI on_control(DWORD kind) {
    PostMessageW(window, WM_CLOSE, 0, 0);
    if (kind == CTRL_CLOSE_EVENT) Sleep(INFINITE); /* the process would end before it is closed */
    return TRUE;
}

int wmain(int argc, wchar_t** argv) {
    MSG message;
    if (argc != 2 || !create_window()) return 2;
    setvbuf(stdout, NULL, _IONBF, 0);
    InitLogger(argv[1]);
    SetConsoleCtrlHandler(on_control, TRUE);
    reopen();
    while (GetMessageW(&message, NULL, 0, 0) > 0) DispatchMessageW(&message);
    UnInit();
    UnInitLogger();
    TerminateProcess(GetCurrentProcess(), 0); /* convention 7: it may have been a detachable one */
    return 0;
}
