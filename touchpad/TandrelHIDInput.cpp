// What the touchpad reports: presses, state events and firmware state, on the reader thread.
#include <algorithm>
#include <iterator>

#include "log/FunctionName.h"
#include "log/ILog.h"
#include "touchpad/TandrelHID.h"
#include "touchpad/TouchpadUsages.h"

namespace vela {
namespace {

const FunctionName kFunction("HandleInputReport");

// Bits of USAGE_FW_STATE.
constexpr ULONG kFwTouchpadDisable = 0x80;
constexpr ULONG kFwTouchpadEnable = 0x40;
constexpr ULONG kFwSwipeOff = 0x20;

}  // namespace

struct CTandrelHID::PressedButton {
    std::uint32_t id;
    const char* disabledLine;
    bool togglesLight;  // the camera's and the microphone's light follow their presses
};

struct CTandrelHID::InputUsage {
    USAGE usage;
    const char* line;
    void (CTandrelHID::*handle)(UCHAR reportId, const PressedButton& button);
    PressedButton button;
};

const CTandrelHID::InputUsage CTandrelHID::kInputUsages[] = {
    {USAGE_SYNC, "Handle HID output report for SYNC", &CTandrelHID::HandleSync, {}},
    {USAGE_CAMERA_BUTTON,
     "Handle HID output report for camera button",
     &CTandrelHID::HandleButtonPress,
     {BUTTON_ID_CAMERA, "CAMERA is disabled", true}},
    {USAGE_SHARE_SCREEN_BUTTON,
     "Handle HID output report for share screen button",
     &CTandrelHID::HandleButtonPress,
     {BUTTON_ID_SHARE_SCREEN, "SHARE_SCREEN is disabled", false}},
    {USAGE_CHAT_BUTTON,
     "Handle HID output report for chat button",
     &CTandrelHID::HandleButtonPress,
     {BUTTON_ID_CHAT, "CHAT is disabled", false}},
    {USAGE_MIC_BUTTON,
     "Handle HID output report for mic button",
     &CTandrelHID::HandleButtonPress,
     {BUTTON_ID_AUDIO, "AUDIO is disabled", true}},
    {USAGE_GESTURE, "Handle HID output report for GESTURE", &CTandrelHID::HandleGesture, {}},
    {USAGE_ENABLED, "Handle HID output report for enabled", &CTandrelHID::HandleEnabled, {}},
    {USAGE_DISABLED, "Handle HID output report for disabled", &CTandrelHID::HandleDisabled, {}},
};

void CTandrelHID::HandleInputReport(std::vector<BYTE>& report, std::vector<USAGE>& usages) {
    const std::shared_ptr<const CHIDInformation> information = Information();
    const UCHAR reportId = report[0];
    std::fill(usages.begin(), usages.end(), USAGE{0});
    auto found = static_cast<ULONG>(usages.size());
    const NTSTATUS status =
        HidP_GetUsages(HidP_Input, information->caps.UsagePage, kNoLinkCollection, usages.data(),
                       &found, information->preparsedData, reinterpret_cast<PCHAR>(report.data()),
                       static_cast<ULONG>(report.size()));
    if (status < 0) {
        const auto error = static_cast<int>(GetLastError());
        GetLogger()->Log(kLogWarning, kFunction,
                         "HidP_GetUsages HidP_Input failed, GetLastError(%d).", error);
        return;
    }

    const bool anyButton =
        std::any_of(usages.begin(), usages.end(), [](USAGE usage) { return usage != 0; });
    if (!anyButton && reportId != kSecondLayoutReportId) {
        HandleFirmwareState(report, *information);
        return;
    }

    std::sort(usages.begin(), usages.end());
    for (const USAGE usage : usages) {
        const auto* const row =
            std::find_if(std::begin(kInputUsages), std::end(kInputUsages),
                         [usage](const InputUsage& input) { return input.usage == usage; });
        if (row == std::end(kInputUsages)) continue;
        GetLogger()->Log(kLogInfo, kFunction, "%s", row->line);
        (this->*row->handle)(reportId, row->button);
    }
}

void CTandrelHID::HandleFirmwareState(std::vector<BYTE>& report,
                                      const CHIDInformation& information) {
    // A report that does not carry the state counts as all clear.
    ULONG state = 0;
    HidP_GetUsageValue(HidP_Input, information.caps.UsagePage, kNoLinkCollection, USAGE_FW_STATE,
                       &state, information.preparsedData, reinterpret_cast<PCHAR>(report.data()),
                       static_cast<ULONG>(report.size()));
    const bool touchpadDisable = (state & kFwTouchpadDisable) != 0;
    const bool touchpadEnable = (state & kFwTouchpadEnable) != 0;
    const bool swipeOff = (state & kFwSwipeOff) != 0;
    GetLogger()->Log(kLogInfo, kFunction,
                     "Vela FW state: TouchpadDisable(%d), TouchpadEnable(%d), SwipeOff(%d)",
                     touchpadDisable, touchpadEnable, swipeOff);
    {
        const std::lock_guard<std::mutex> lock(statusMutex_);
        TabletModeDisable_ = touchpadDisable;
        TemporaryDisable_ = swipeOff;
    }
    ReportStatusWhileActive(StatusOr(kStatusNormal));
}

void CTandrelHID::HandleSync(UCHAR, const PressedButton&) {
    if (TabletModeDisable_) return;
    TemporaryDisable_ = false;
    SetButtonBreathing(BUTTON_ID_CHAT, false);
    Update(true);
    ReportStatusWhileActive(kStatusNormal);
}

void CTandrelHID::HandleButtonPress(UCHAR, const PressedButton& button) {
    const ButtonState state = CopyButton(button.id);
    if (!state.enabled) {
        GetLogger()->Log(kLogInfo, kFunction, "%s", button.disabledLine);
        return;
    }
    const bool newLight = !state.lightOn;
    if (const ButtonPressCallback callback = buttonPressCallback_) callback(button.id, newLight);
    if (button.togglesLight && activationState_ != kActiveHostSetsLights) {
        SetButtonLight(button.id, newLight);
    }
}

void CTandrelHID::HandleGesture(UCHAR, const PressedButton&) {
    if (!IsActivated()) return;
    TemporaryDisable_ = true;
    ReportStatus(kStatusTemporarilyDisabled);
}

void CTandrelHID::HandleEnabled(UCHAR reportId, const PressedButton&) {
    TabletModeDisable_ = false;
    // The second report layout has no firmware state that would end a temporary disable later.
    if (reportId == kSecondLayoutReportId) TemporaryDisable_ = false;
    ReportStatusWhileActive(TemporaryDisable_ ? kStatusTemporarilyDisabled : kStatusNormal);
    SetButtonBreathing(BUTTON_ID_CHAT, false);
    Update(false);
}

void CTandrelHID::HandleDisabled(UCHAR, const PressedButton&) {
    TabletModeDisable_ = true;
    ReportStatusWhileActive(kStatusDisabled);
}

std::uint32_t CTandrelHID::StatusOr(std::uint32_t undisturbed) const {
    if (TabletModeDisable_) return kStatusDisabled;
    if (TemporaryDisable_) return kStatusTemporarilyDisabled;
    return undisturbed;
}

void CTandrelHID::ReportStatus(std::uint32_t status) const {
    if (const StatusChangeCallback callback = statusChangeCallback_) callback(status);
}

void CTandrelHID::ReportStatusWhileActive(std::uint32_t status) const {
    if (IsActivated()) ReportStatus(status);
}

}  // namespace vela
