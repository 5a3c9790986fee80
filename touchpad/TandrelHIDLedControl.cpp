// Composes the LED report: the whole state of the session in one output report.
#include "log/ILog.h"
#include "touchpad/LedControlTable.h"
#include "touchpad/OutputReport.h"
#include "touchpad/TandrelHID.h"

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

// The light functions set the second light first and leave the first one alone when that failed. A
// touchpad without the second light is no news: only the first light's failure is answered.

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
    // In a zeroed report there is nothing to unset, as a rule.
    if (status >= 0 || status == HIDP_STATUS_BUTTON_NOT_PRESSED) return;
    GetLogger()->Log(kLogError, kFunction, "HidP_UnsetUsages failed, status : %d",
                     static_cast<int>(status));
}

void ComposeHiddenButton(const LedControl& row, OutputReport& report) {
    const NTSTATUS status = DarkenLights(row, report);
    if (status < 0) {
        LogSetValueFailed(status);
    } else if (row.buttonId == BUTTON_ID_CHAT) {
        SetBreathing(kNoBreathing, report);
    }
}

// All dark: the feature is off, or the host has not activated the touchpad. The firmware ends
// breathing by itself when the chat button is no longer active.
void ComposeBlank(OutputReport& report) {
    for (const LedControl& row : LedControlTable) {
        // Told once per button and without its status: dark is what the light was to be, so that
        // it is no light missing, only a touchpad that lacks it.
        if (DarkenLights(row, report) < 0) LogSetValueFailed(HIDP_STATUS_SUCCESS);
    }
    for (const USAGE usage :
         {USAGE_CAMERA_ACTIVE, USAGE_SHARE_SCREEN_ACTIVE, USAGE_CHAT_ACTIVE, USAGE_AUDIO_ACTIVE}) {
        UnsetActive(usage, report);
    }
}

}  // namespace

void CTandrelHID::UpdateLedCtrl(std::vector<BYTE>& report) {
    const std::shared_ptr<const CHIDInformation> information = Information();
    if (information == nullptr || information->caps.OutputReportByteLength == 0) return;
    OutputReport fields(*information, report);
    if (initialized_ && featureEnabled_ && IsActivated()) {
        ComposeLit(fields);
    } else {
        ComposeBlank(fields);
    }
}

void CTandrelHID::ComposeLit(OutputReport& report) {
    ButtonUsages set;
    ButtonUsages unset;
    for (const LedControl& row : LedControlTable) {
        // Without the table's lock: whoever changes a button queues another report right behind, so
        // a moment's older flag is soon put right, and no host call waits for a composition.
        const ButtonState button = buttons_.Meeting()[row.buttonId];
        if (button.enabled && button.visible) {
            set.Add(row.active);
            ComposeShownButton(row, button, report);
        } else {
            unset.Add(row.active);
            ComposeHiddenButton(row, report);
        }
    }
    SetActive(set, report);
    for (const USAGE usage : unset) UnsetActive(usage, report);
}

void CTandrelHID::ComposeShownButton(const LedControl& row, const ButtonState& button,
                                     OutputReport& report) {
    const NTSTATUS status = SwitchLights(row, button.lightOn, brightness_, report);
    if (status < 0) {
        LogSetValueFailed(status);
    } else if (row.buttonId == BUTTON_ID_CHAT && button.breathingEnabled) {
        SetBreathing(NextBreathingValue(button), report);
    }
}

ULONG CTandrelHID::NextBreathingValue(const ButtonState& chat) {
    if (chat.breathingState == kBreathingRunning) return kKeepBreathing;
    if (chat.breathingState != kBreathingRequested) return kNoBreathing;
    const std::lock_guard<std::mutex> lock(buttonMutex_);
    ButtonState& button = buttons_[BUTTON_ID_CHAT];
    // A stop that came in meanwhile stays; its own report follows this one.
    if (button.breathingState == kBreathingRequested) button.breathingState = kBreathingRunning;
    return kStartBreathing;
}

}  // namespace vela
