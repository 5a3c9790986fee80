/* The host guide's first host: four lights, and a line for each press. */
#include <windows.h>

#include <stdio.h>
#include <wchar.h>

#define VELA_AGENT_NO_PROTOTYPES /* the functions' names are those of the pointers below */
#include "VelaAgent.h"

static VelaInitLoggerFunction InitLogger;
static VelaUnInitLoggerFunction UnInitLogger;
static VelaInitFunction Init;
static VelaUnInitFunction UnInit;
static VelaSetVelaButtonPressCallbackFunction SetVelaButtonPressCallback;
static VelaActivateFunction Activate;
static VelaEnableFeatureFunction EnableFeature;
static VelaEnableSingleButtonFunction EnableSingleButton;
static VelaSetButtonVisibleFunction SetButtonVisible;

#define FIND(name) ((name) = (Vela##name##Function)(void (*)(void))GetProcAddress(agent, #name))

/* The DLL of the program's own folder and no other; what the DLL needs is the system's. */
static int load_agent(void) {
    wchar_t path[1024] = {0};
    HMODULE agent;
    const DWORD length = GetModuleFileNameW(NULL, path, 1000);
    if (length == 0 || length >= 1000) return 0;
    wcscpy(wcsrchr(path, L'\\') + 1, L"VelaAgent.dll");
    agent = LoadLibraryExW(path, NULL, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return agent != NULL && FIND(InitLogger) && FIND(UnInitLogger) && FIND(Init) && FIND(UnInit) &&
           FIND(SetVelaButtonPressCallback) && FIND(Activate) && FIND(EnableFeature) &&
           FIND(EnableSingleButton) && FIND(SetButtonVisible);
}

/* Logs into a folder that exists and that only the user can write to. */
static void start_log(void) {
    wchar_t folder[1024];
    const DWORD length = GetEnvironmentVariableW(L"LOCALAPPDATA", folder, 1000);
    if (length == 0 || length >= 1000) return;
    wcscat(folder, L"\\MyHost");
    CreateDirectoryW(folder, NULL);
    InitLogger(folder);
}

static void on_press(uint32_t button, uint32_t new_light) {
    printf("button %u pressed, its light goes %s\n", (unsigned)button, new_light ? "on" : "off");
    fflush(stdout);
}

int main(void) {
    uint32_t button;
    if (!load_agent()) {
        printf("there is no VelaAgent.dll beside this program\n");
        return 1;
    }
    start_log();
    if (Init() != VELA_INIT_OPEN) {
        printf("no touchpad to open; VelaAgent.log says why\n");
        UnInitLogger();
        return 1;
    }
    SetVelaButtonPressCallback(on_press);
    Activate(VELA_ACTIVE);
    EnableFeature(1);
    for (button = VELA_BUTTON_CAMERA; button <= VELA_BUTTON_SHARE_SCREEN; ++button) {
        EnableSingleButton(button, 1);
        SetButtonVisible(button, 1);
    }
    printf("press a button of the touchpad; Enter leaves\n");
    fflush(stdout);
    getchar();
    UnInit();
    UnInitLogger();
    return 0;
}
