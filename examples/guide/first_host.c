/* The host guide's first host: four lights, and a line for each press. */
#include <stdio.h>

#include "VelaAgent.h"

static void on_press(uint32_t button, uint32_t new_light) {
    printf("button %u pressed, its light goes %s\n", (unsigned)button, new_light ? "on" : "off");
    fflush(stdout);
}

int main(void) {
    uint32_t button;
    InitLogger(L".");
    if (Init() != VELA_INIT_OPEN) {
        printf("no touchpad to open; VelaAgent.log says why\n");
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
