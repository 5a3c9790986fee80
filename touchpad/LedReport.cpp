#include "touchpad/LedReport.h"

#include "log/ILog.h"
#include "touchpad/LedControlTable.h"
#include "touchpad/OutputReport.h"

namespace vela {
namespace {

constexpr const char* kFunction = "UpdateLedCtrl";

// Values of USAGE_CHAT_BREATHING.
constexpr ULONG kStartBreathing = 8;
constexpr ULONG kKeepBreathing = 15;
constexpr ULONG kNoBreathing = 0;

void LogSetValueFailed(NTSTATUS status) {
    GetLogger()->Log(kLogError, kFunction, "HidP_SetUsageValue failed, status : %d",
                     static_cast<int>(status));
}

void SetBreathing(ULONG value, OutputReport& report) {
    const NTSTATUS status = report.SetValue(USAGE_CHAT_BREATHING, value);
    if (status < 0) LogSetValueFailed(status);
}

// The light functions set the second light first, and skip the first one when that failed. They
// return only the first light's status, as a touchpad may lack the second light.

NTSTATUS DarkenLights(const LedControl& row, OutputReport& report) {
    if (report.SetValue(row.secondLight, 0) < 0) return HIDP_STATUS_SUCCESS;
    return report.SetValue(row.firstLight, 0);
}

NTSTATUS SwitchLights(const LedControl& row, bool lightOn, ULONG brightness, OutputReport& report) {
    if (!row.HasTwoLights()) return report.SetValue(row.firstLight, brightness);
    if (report.SetValue(row.secondLight, lightOn ? brightness : 0) < 0) return HIDP_STATUS_SUCCESS;
    return report.SetValue(row.firstLight, lightOn ? 0 : brightness);
}

void SetActive(const ButtonUsages& usages, OutputReport& report) {
    if (usages.IsEmpty()) return;
    const NTSTATUS status = report.SetButtons(usages);
    if (status >= 0) return;
    GetLogger()->Log(kLogError, kFunction, "HidP_SetUsages failed, status : %d",
                     static_cast<int>(status));
}

void UnsetActive(USAGE usage, OutputReport& report) {
    const NTSTATUS status = report.UnsetButton(usage);
    // In a zeroed report there is usually nothing to unset.
    if (status >= 0 || status == HIDP_STATUS_BUTTON_NOT_PRESSED) return;
    GetLogger()->Log(kLogError, kFunction, "HidP_UnsetUsages failed, status : %d",
                     static_cast<int>(status));
}

ULONG NextBreathingValue(const ButtonState& chat, ButtonTable& buttons) {
    if (chat.breathingState == kBreathingRunning) return kKeepBreathing;
    if (chat.breathingState != kBreathingRequested) return kNoBreathing;
    buttons.StartChatBreathing();
    return kStartBreathing;
}

void ComposeShownButton(const LedControl& row, const ButtonState& button, ULONG brightness,
                        ButtonTable& buttons, OutputReport& report) {
    const NTSTATUS status = SwitchLights(row, button.lightOn, brightness, report);
    if (status < 0) {
        LogSetValueFailed(status);
    } else if (row.buttonId == BUTTON_ID_CHAT && button.breathingEnabled) {
        SetBreathing(NextBreathingValue(button, buttons), report);
    }
}

void ComposeHiddenButton(const LedControl& row, OutputReport& report) {
    const NTSTATUS status = DarkenLights(row, report);
    if (status < 0) {
        LogSetValueFailed(status);
    } else if (row.buttonId == BUTTON_ID_CHAT) {
        SetBreathing(kNoBreathing, report);
    }
}

void ComposeDriven(ULONG brightness, ButtonTable& buttons, OutputReport& report) {
    ButtonUsages set;
    ButtonUsages unset;
    for (const LedControl& row : LedControlTable) {
        const ButtonState button = buttons.Meeting()[row.buttonId];
        if (button.enabled && button.visible) {
            set.Add(row.active);
            ComposeShownButton(row, button, brightness, buttons, report);
        } else {
            unset.Add(row.active);
            ComposeHiddenButton(row, report);
        }
    }
    SetActive(set, report);
    for (const USAGE usage : unset) UnsetActive(usage, report);
}

// Composes a dark report. The firmware ends breathing itself when the chat button is not active.
void ComposeBlank(OutputReport& report) {
    for (const LedControl& row : LedControlTable) {
        // Logged with the success status whatever the call returned; log readers know the line so.
        if (DarkenLights(row, report) < 0) LogSetValueFailed(HIDP_STATUS_SUCCESS);
    }
    for (const USAGE usage :
         {USAGE_CAMERA_ACTIVE, USAGE_SHARE_SCREEN_ACTIVE, USAGE_CHAT_ACTIVE, USAGE_AUDIO_ACTIVE}) {
        UnsetActive(usage, report);
    }
}

}  // namespace

void UpdateLedCtrl(const CHIDInformation& information, const LedState& state, ButtonTable& buttons,
                   std::vector<BYTE>& report) {
    if (information.caps.OutputReportByteLength == 0) return;
    OutputReport fields(information, report);
    if (state.driven) {
        ComposeDriven(state.brightness, buttons, fields);
    } else {
        ComposeBlank(fields);
    }
}

}  // namespace vela
