#include "touchpad/InputHandler.h"

#include <algorithm>
#include <iterator>

#include "log/ILog.h"
#include "touchpad/TouchpadUsages.h"

namespace vela {
namespace {

constexpr const char* kFunction = "HandleInputReport";

// Bits of USAGE_FW_STATE.
constexpr ULONG kFwTouchpadDisable = 0x80;
constexpr ULONG kFwTouchpadEnable = 0x40;
constexpr ULONG kFwSwipeOff = 0x20;

}  // namespace

struct InputHandler::PressedButton {
    std::uint32_t id;
    const char* disabledLine;
    bool togglesLight;  // true for camera and microphone: a press toggles their light
};

struct InputHandler::InputUsage {
    USAGE usage;
    const char* line;
    void (InputHandler::*handle)(UCHAR reportId, const PressedButton& button);
    PressedButton button;
};

const InputHandler::InputUsage InputHandler::kInputUsages[] = {
    {USAGE_SYNC, "Handle HID output report for SYNC", &InputHandler::HandleSync, {}},
    {USAGE_CAMERA_BUTTON,
     "Handle HID output report for camera button",
     &InputHandler::HandleButtonPress,
     {BUTTON_ID_CAMERA, "CAMERA is disabled", true}},
    {USAGE_SHARE_SCREEN_BUTTON,
     "Handle HID output report for share screen button",
     &InputHandler::HandleButtonPress,
     {BUTTON_ID_SHARE_SCREEN, "SHARE_SCREEN is disabled", false}},
    {USAGE_CHAT_BUTTON,
     "Handle HID output report for chat button",
     &InputHandler::HandleButtonPress,
     {BUTTON_ID_CHAT, "CHAT is disabled", false}},
    {USAGE_MIC_BUTTON,
     "Handle HID output report for mic button",
     &InputHandler::HandleButtonPress,
     {BUTTON_ID_AUDIO, "AUDIO is disabled", true}},
    {USAGE_GESTURE, "Handle HID output report for GESTURE", &InputHandler::HandleGesture, {}},
    {USAGE_ENABLED, "Handle HID output report for enabled", &InputHandler::HandleEnabled, {}},
    {USAGE_DISABLED, "Handle HID output report for disabled", &InputHandler::HandleDisabled, {}},
};

void InputHandler::HandleInputReport(const CHIDInformation& information, std::vector<BYTE>& report,
                                     std::vector<USAGE>& usages) {
    const UCHAR reportId = report[0];
    std::fill(usages.begin(), usages.end(), USAGE{0});
    auto found = static_cast<ULONG>(usages.size());
    const NTSTATUS status =
        HidP_GetUsages(HidP_Input, information.caps.UsagePage, kNoLinkCollection, usages.data(),
                       &found, information.preparsedData, reinterpret_cast<PCHAR>(report.data()),
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
        HandleFirmwareState(information, report);
        return;
    }
    std::sort(usages.begin(), usages.end());
    for (const USAGE usage : usages) HandleUsage(reportId, usage);
}

void InputHandler::HandleUsage(UCHAR reportId, USAGE usage) {
    const auto* const row =
        std::find_if(std::begin(kInputUsages), std::end(kInputUsages),
                     [usage](const InputUsage& input) { return input.usage == usage; });
    if (row == std::end(kInputUsages)) return;
    GetLogger()->Log(kLogInfo, kFunction, "%s", row->line);
    (this->*row->handle)(reportId, row->button);
}

void InputHandler::HandleFirmwareState(const CHIDInformation& information,
                                       std::vector<BYTE>& report) {
    // Without USAGE_FW_STATE in the report all flags count as clear.
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
    status_.SetFirmwareState(touchpadDisable, swipeOff);
    status_.ReportStatusWhileActive(status_.StatusOr(kStatusNormal));
}

void InputHandler::HandleSync(UCHAR, const PressedButton&) {
    if (status_.IsTabletModeDisabled()) return;
    status_.SetTemporaryDisable(false);
    lights_.SetButtonBreathing(BUTTON_ID_CHAT, false);
    lights_.Update(true);
    status_.ReportStatusWhileActive(kStatusNormal);
}

void InputHandler::HandleButtonPress(UCHAR, const PressedButton& button) {
    const ButtonState state = buttons_.Copy(button.id);
    if (!state.enabled) {
        GetLogger()->Log(kLogInfo, kFunction, "%s", button.disabledLine);
        return;
    }
    const bool newLight = !state.lightOn;
    status_.ReportPress(button.id, newLight);
    if (button.togglesLight && status_.Activation() != kActiveHostSetsLights) {
        lights_.SetButtonLight(button.id, newLight);
    }
}

void InputHandler::HandleGesture(UCHAR, const PressedButton&) {
    if (!status_.IsActivated()) return;
    status_.SetTemporaryDisable(true);
    status_.ReportStatus(kStatusTemporarilyDisabled);
}

void InputHandler::HandleEnabled(UCHAR reportId, const PressedButton&) {
    status_.SetTabletModeDisable(false);
    // The second report layout has no firmware state that would end a temporary disable later.
    if (reportId == kSecondLayoutReportId) status_.SetTemporaryDisable(false);
    status_.ReportStatusWhileActive(status_.IsTemporarilyDisabled() ? kStatusTemporarilyDisabled
                                                                    : kStatusNormal);
    lights_.SetButtonBreathing(BUTTON_ID_CHAT, false);
    lights_.Update(false);
}

void InputHandler::HandleDisabled(UCHAR, const PressedButton&) {
    status_.SetTabletModeDisable(true);
    status_.ReportStatusWhileActive(kStatusDisabled);
}

}  // namespace vela
