/* The host guide's examples, group by group, in an order in which they can all run. */
#include <windows.h>

#include <stdio.h>
#include <wchar.h>

#include "VelaAgent.h"

/* Logs into a folder that exists and that only the user can write to. */
static void start_log(void) {
    wchar_t folder[1024];
    const DWORD length = GetEnvironmentVariableW(L"LOCALAPPDATA", folder, 1000);
    if (length == 0 || length >= 1000) return;
    wcscat(folder, L"\\MyHost");
    CreateDirectoryW(folder, NULL);
    InitLogger(folder);
}

static void open_touchpad(void) {
    switch (Init()) {
        case VELA_INIT_OPEN:
            printf("open\n");
            break;
        case VELA_INIT_HELD_BY_OTHER:
            printf("another program has the touchpad; ask the user to close it\n");
            break;
        default:
            printf("no touchpad; try again when one is plugged in\n");
    }
}

static void start_meeting(void) {
    Activate(VELA_ACTIVE);
    EnableFeature(1);
    EnableSingleButton(VELA_BUTTON_CAMERA, 1);
    EnableSingleButton(VELA_BUTTON_MICROPHONE, 1);
    SetButtonVisible(VELA_BUTTON_CAMERA, 1);
    SetButtonVisible(VELA_BUTTON_MICROPHONE, 1);
}

static void muted_elsewhere(void) {
    /* The user clicked on the screen instead: bring the button's light along. */
    SetButtonLight(VELA_BUTTON_MICROPHONE, 0);
}

static void set_lights_myself(void) {
    /* Presses are reported, no light changes by itself. */
    Activate(VELA_ACTIVE_HOST_SETS_LIGHTS);
    SetButtonLight(VELA_BUTTON_CAMERA, 1);
}

static void message_came(void) {
    EnableSingleButton(VELA_BUTTON_CHAT, 1);
    SetButtonVisible(VELA_BUTTON_CHAT, 1);
    EnableChatBreathing(1);
    SetButtonBreathing(VELA_BUTTON_CHAT, 1);
}

static void message_read(void) { SetButtonBreathing(VELA_BUTTON_CHAT, 0); }

static void dim_lights(void) {
    const uint32_t before = GetVelaBrightness();
    SetVelaBrightness(20);
    printf("brightness %u, before %u\n", (unsigned)GetVelaBrightness(), (unsigned)before);
}

static void on_status(uint32_t status) {
    if (status == VELA_STATUS_TEMPORARILY_DISABLED || status == VELA_STATUS_DISABLED) {
        printf("the buttons are off; show the controls on the screen\n");
    } else {
        printf("status %u\n", (unsigned)status);
    }
}

static void request_status(void) {
    SetVelaStatusChangeCallback(on_status);
    if (!UpdateVelaState()) printf("this touchpad has no such request\n");
}

static void set_click_mode(void) {
    if (!SetClickMode(VELA_CLICK_MODE_ON, 300)) {
        printf("this touchpad has no click mode\n");
    } else {
        printf("click mode %u\n", (unsigned)GetClickMode());
    }
}

static void print_what_it_can(void) {
    printf("detachable %d, swipes both ways %d\n", (int)IsDetachable(),
           (int)IsSupportBiDirectionSwipe());
}

static void make_feedback_stronger(void) {
    if (!InitHapticTP()) {
        printf("no haptic touchpad\n");
        return;
    }
    if (SetHapticTPIntensityLevel(80)) {
        printf("haptic level %u\n", (unsigned)GetHapticTPIntensityLevel());
    }
    UnInitHapticTP();
}

static void pause_meeting(void) {
    Activate(VELA_SUSPENDED); /* dark; as it was after the next VELA_ACTIVE */
}

static void end_meeting(void) {
    Activate(VELA_DEACTIVATED);
    UnInit();
}

int main(void) {
    start_log();
    printf("touchpad %s\n", IsVelaPresent() ? "present" : "not present");
    open_touchpad();
    start_meeting();
    muted_elsewhere();
    message_came();
    message_read();
    dim_lights();
    request_status();
    set_click_mode();
    print_what_it_can();
    set_lights_myself();
    pause_meeting();
    make_feedback_stronger();
    end_meeting();
    UnInitLogger();
    return 0;
}
