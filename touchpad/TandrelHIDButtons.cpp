// The button table and what a change of it sets off.
#include "log/ILog.h"
#include "touchpad/OutputReport.h"
#include "touchpad/TandrelHID.h"
#include "touchpad/TouchpadUsages.h"

namespace vela {

ButtonState CTandrelHID::CopyButton(std::uint32_t buttonId) {
    const std::lock_guard<std::mutex> lock(buttonMutex_);
    return buttons_[buttonId];
}

void CTandrelHID::SetButtonFlag(std::uint32_t buttonId, Relaxed<bool> ButtonState::*flag,
                                bool value) {
    const std::lock_guard<std::mutex> lock(buttonMutex_);
    buttons_[buttonId].*flag = value;
}

bool CTandrelHID::EnableButton(std::uint32_t buttonId, bool enable) {
    if (!initialized_) return false;
    SetButtonFlag(buttonId, &ButtonState::enabled, enable);
    GetLogger()->Log(kLogInfo, "EnableButton", "EnableButton button(%d), enable(%d)",
                     static_cast<int>(buttonId), enable);
    Update(false);
    return true;
}

bool CTandrelHID::EnableButtonBreathing(std::uint32_t buttonId, bool enable) {
    if (!initialized_) return false;
    SetButtonFlag(buttonId, &ButtonState::breathingEnabled, enable);
    GetLogger()->Log(kLogInfo, "EnableButtonBreathing",
                     "EnableButtonBreathing button(%d), enable(%d)", static_cast<int>(buttonId),
                     enable);
    Update(false);
    return true;
}

bool CTandrelHID::SetButtonVisible(std::uint32_t buttonId, bool visible) {
    if (!initialized_) return false;
    SetButtonFlag(buttonId, &ButtonState::visible, visible);
    GetLogger()->Log(kLogInfo, "SetButtonVisible", "SetButtonVisible for BUTTON_ID %d (%d)",
                     static_cast<int>(buttonId), visible);
    Update(false);
    return true;
}

bool CTandrelHID::SetButtonLight(std::uint32_t buttonId, bool on) {
    if (!initialized_) return false;
    SetButtonFlag(buttonId, &ButtonState::lightOn, on);
    GetLogger()->Log(kLogInfo, "SetButtonLight", "SetButtonLight for BUTTON_ID %d (%d)",
                     static_cast<int>(buttonId), on);
    Update(false);
    return true;
}

bool CTandrelHID::SetButtonBreathing(std::uint32_t buttonId, bool on) {
    if (!initialized_) return false;
    {
        const std::lock_guard<std::mutex> lock(buttonMutex_);
        ButtonState& button = buttons_[buttonId];
        button.breathingState = on ? kBreathingRequested : kBreathingStopped;
        button.breathingLevel = on ? 8 : 0;
    }
    GetLogger()->Log(kLogInfo, "SetButtonBreathing", "SetButtonBreathing for BUTTON_ID %d (%d)",
                     static_cast<int>(buttonId), on);
    Update(true);
    return true;
}

bool CTandrelHID::IsButtonEnabled(std::uint32_t buttonId) {
    const ButtonState button = CopyButton(buttonId);
    return button.present && button.enabled;
}

bool CTandrelHID::IsButtonBreathingEnabled(std::uint32_t buttonId) {
    const ButtonState button = CopyButton(buttonId);
    return button.present && button.breathingEnabled;
}

void CTandrelHID::SetBrightness(std::uint8_t level) {
    if (!initialized_) return;
    brightness_ = level;
    GetLogger()->Log(kLogInfo, "SetBrightness", "SetBrightness (%d)", level);
    Update(false);
}

void CTandrelHID::ResetButtonVisibility() {
    const std::lock_guard<std::mutex> lock(buttonMutex_);
    for (const std::uint32_t buttonId : kSeededButtonIds) buttons_[buttonId].visible = false;
}

std::vector<BYTE> CTandrelHID::EmptyOutputReport() const {
    const std::shared_ptr<const CHIDInformation> information = Information();
    return std::vector<BYTE>(information != nullptr ? information->caps.OutputReportByteLength : 0);
}

void CTandrelHID::Update(bool force) {
    bool connected = false;
    if (GetDeviceConnectState(connected) && !connected) return;

    // While the touchpad is disabled its firmware drives the lights.
    const bool temporaryDisable = TemporaryDisable_;
    const bool tabletModeDisable = TabletModeDisable_;
    if (temporaryDisable || tabletModeDisable) {
        GetLogger()->Log(kLogInfo, "Update",
                         "Can't update Vela state because TemporaryDisable (%d) or "
                         "TabletModeDisable (%d)",
                         temporaryDisable, tabletModeDisable);
        return;
    }
    const Turnstile::Turn turn(composers_);
    std::vector<BYTE> report = EmptyOutputReport();
    UpdateLedCtrl(report);
    EnqueueOutputReport(turn, std::move(report), force);
}

bool CTandrelHID::UpdateVelaState() {
    const std::shared_ptr<const CHIDInformation> information = Information();
    if (!initialized_ || information == nullptr) return false;

    HIDP_BUTTON_CAPS request{};
    if (!information->GetButtonCaps(HidP_Output, USAGE_REQUEST, request)) return false;
    // Touchpads of the second report layout report their state by themselves and take this report
    // for another one.
    if (request.ReportID == kSecondLayoutReportId) return false;

    std::vector<BYTE> report = EmptyOutputReport();
    if (OutputReport(*information, report).SetButtons(ButtonUsages(USAGE_REQUEST)) < 0) {
        const auto error = static_cast<int>(GetLastError());
        GetLogger()->Log(kLogWarning, "UpdateVelaState",
                         "HidP_SetUsages HidP_Output USAGE_REQUEST GetLastError(%d).", error);
        return false;
    }
    GetLogger()->Log(kLogInfo, "UpdateVelaState", "UpdateVelaState.");
    return EnqueueOutputReport(Turnstile::Turn(composers_), std::move(report), true);
}

}  // namespace vela
