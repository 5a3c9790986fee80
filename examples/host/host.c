/* A small conferencing host to copy from: it opens the touchpad, lights its buttons, receives their
 * presses and closes it again.
 *
 *   host LOGDIRECTORY
 *
 * The directory is absolute, exists, and only the user can write to it, as "%LOCALAPPDATA%\Host".
 * Lines on standard input stand for the user interface of a real host:
 *   join    the meeting begins: lights on
 *   chat    a chat message arrived: the chat light breathes
 *   read    the message was read
 *   haptic  prints the strength of a haptic touchpad's feedback; "haptic 80" sets it as well
 *   leave   the meeting ends (so does the end of input)
 * Each callback and each requested value is printed as a line on standard output. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>

#include "VelaAgent.h"

static const char* const button_names[] = {"camera", "microphone", "chat", "share screen"};

/* Presses come on the library's reader thread, status changes also on the thread that calls the
 * library. A real host posts to its own thread in both; it must not call UnInit here. */
static void on_button_press(uint32_t button, uint32_t new_light) {
    const char* const name = button < 4 ? button_names[button] : "unknown";
    printf("callback: %s pressed, light to be %s\n", name, new_light ? "on" : "off");
    fflush(stdout);
}

static void on_status_change(uint32_t status) {
    const char* const text = status == VELA_STATUS_TEMPORARILY_DISABLED ? "disabled by a gesture"
                             : status == VELA_STATUS_DISABLED           ? "disabled"
                             : status == VELA_STATUS_DEACTIVATED        ? "deactivated"
                                                                        : "normal";
    printf("callback: status %u (%s)\n", (unsigned)status, text);
    fflush(stdout);
}

static int join(void) {
    uint32_t button;
    const int32_t result = Init();
    if (result != VELA_INIT_OPEN) {
        fprintf(stderr, "host: %s\n",
                result == VELA_INIT_HELD_BY_OTHER ? "the touchpad is held by another process"
                                                  : "no touchpad found; see VelaAgent.log");
        return 0;
    }
    SetVelaButtonPressCallback(on_button_press);
    SetVelaStatusChangeCallback(on_status_change);
    EnableFeature(1);
    Activate(VELA_ACTIVE);
    SetVelaBrightness(200);
    for (button = VELA_BUTTON_CAMERA; button <= VELA_BUTTON_SHARE_SCREEN; ++button) {
        EnableSingleButton(button, 1);
        SetButtonVisible(button, 1);
    }
    EnableChatBreathing(1);
    return 1;
}

/* The haptic session is independent of the touchpad's. The level is in the device's own range,
 * which is mostly 0 to 100. */
static void show_haptic_level(const char* new_level) {
    if (!InitHapticTP()) {
        printf("answer: %s\n",
               IsHapticTPPresent() ? "the haptic touchpad cannot be opened" : "no haptic touchpad");
        return;
    }
    printf("answer: haptic touchpad present, level %u\n", (unsigned)GetHapticTPIntensityLevel());
    if (*new_level != '\0') {
        const int32_t was_set = SetHapticTPIntensityLevel((uint32_t)strtoul(new_level, NULL, 10));
        printf("answer: level %s, reads %u\n", was_set ? "set" : "not set",
               (unsigned)GetHapticTPIntensityLevel());
    }
    UnInitHapticTP();
}

static void leave(void) {
    Activate(VELA_DEACTIVATED);
    UnInit();
}

enum outcome { GO_ON, LEAVE, FAILED };

static enum outcome run_command(const char* command) {
    if (strcmp(command, "join") == 0) return join() ? GO_ON : FAILED;
    if (strcmp(command, "chat") == 0) SetButtonBreathing(VELA_BUTTON_CHAT, 1);
    if (strcmp(command, "read") == 0) SetButtonBreathing(VELA_BUTTON_CHAT, 0);
    if (strncmp(command, "haptic", 6) == 0) show_haptic_level(command + 6);
    return strcmp(command, "leave") == 0 ? LEAVE : GO_ON;
}

int wmain(int argc, wchar_t** argv) {
    char command[64];
    enum outcome outcome = GO_ON;
    if (argc != 2) {
        fprintf(stderr, "usage: host LOGDIRECTORY\n");
        return 2;
    }
    InitLogger(argv[1]);
    printf("host: touchpad %s\n", IsVelaPresent() ? "present" : "not present");
    fflush(stdout);
    while (outcome == GO_ON && fgets(command, sizeof(command), stdin) != NULL) {
        command[strcspn(command, "\r\n")] = '\0';
        outcome = run_command(command);
        printf("host: done %s\n", command);
        fflush(stdout);
    }
    leave();
    UnInitLogger();
    return outcome == FAILED ? 1 : 0;
}
