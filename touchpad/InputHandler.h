// Handles the touchpad's input reports: presses, state events and firmware state.
#pragma once

#include <cstdint>
#include <vector>

#include <windows.h>

#include "hid/HIDInformation.h"
#include "touchpad/ButtonLights.h"
#include "touchpad/ButtonTable.h"
#include "touchpad/SessionStatus.h"

namespace vela {

// Runs on the reader's thread. Holds no lock while the host's callbacks run.
class InputHandler {
 public:
    InputHandler(SessionStatus& status, ButtonTable& buttons, ButtonLights& lights)
        : status_(status), buttons_(buttons), lights_(lights) {}
    InputHandler(const InputHandler&) = delete;
    InputHandler& operator=(const InputHandler&) = delete;

    // `report` is as read, report id first. `usages` is a buffer for as many usages as a report can
    // hold at once; its content is overwritten.
    void HandleInputReport(const CHIDInformation& information, std::vector<BYTE>& report,
                           std::vector<USAGE>& usages);

 private:
    struct PressedButton;
    struct InputUsage;
    static const InputUsage kInputUsages[];

    void HandleUsage(UCHAR reportId, USAGE usage);
    void HandleFirmwareState(const CHIDInformation& information, std::vector<BYTE>& report);
    void HandleSync(UCHAR reportId, const PressedButton& button);
    void HandleButtonPress(UCHAR reportId, const PressedButton& button);
    void HandleGesture(UCHAR reportId, const PressedButton& button);
    void HandleEnabled(UCHAR reportId, const PressedButton& button);
    void HandleDisabled(UCHAR reportId, const PressedButton& button);

    SessionStatus& status_;  // these three have locks of their own
    ButtonTable& buttons_;
    ButtonLights& lights_;
};

}  // namespace vela
