#include "touchpad/ButtonLights.h"

#include <utility>

#include "log/ILog.h"
#include "touchpad/OutputReport.h"
#include "touchpad/TouchpadUsages.h"

namespace vela {

bool ButtonLights::EnableButton(std::uint32_t buttonId, bool enable) {
    return SetFlag(buttonId, &ButtonState::enabled, enable, "EnableButton",
                   "EnableButton button(%d), enable(%d)");
}

bool ButtonLights::EnableButtonBreathing(std::uint32_t buttonId, bool enable) {
    return SetFlag(buttonId, &ButtonState::breathingEnabled, enable, "EnableButtonBreathing",
                   "EnableButtonBreathing button(%d), enable(%d)");
}

bool ButtonLights::SetButtonVisible(std::uint32_t buttonId, bool visible) {
    return SetFlag(buttonId, &ButtonState::visible, visible, "SetButtonVisible",
                   "SetButtonVisible for BUTTON_ID %d (%d)");
}

bool ButtonLights::SetButtonLight(std::uint32_t buttonId, bool on) {
    return SetFlag(buttonId, &ButtonState::lightOn, on, "SetButtonLight",
                   "SetButtonLight for BUTTON_ID %d (%d)");
}

bool ButtonLights::SetFlag(std::uint32_t buttonId, Relaxed<bool> ButtonState::*flag, bool value,
                           const char* function, const char* format) {
    if (!device_.IsInitialized()) return false;
    buttons_.SetFlag(buttonId, flag, value);
    GetLogger()->Log(kLogInfo, function, format, static_cast<int>(buttonId), value);
    Update(false);
    return true;
}

bool ButtonLights::SetButtonBreathing(std::uint32_t buttonId, bool on) {
    if (!device_.IsInitialized()) return false;
    buttons_.SetBreathing(buttonId, on);
    GetLogger()->Log(kLogInfo, "SetButtonBreathing", "SetButtonBreathing for BUTTON_ID %d (%d)",
                     static_cast<int>(buttonId), on);
    Update(true);
    return true;
}

void ButtonLights::SetBrightness(std::uint8_t level) {
    if (!device_.IsInitialized()) return;
    brightness_ = level;
    GetLogger()->Log(kLogInfo, "SetBrightness", "SetBrightness (%d)", level);
    Update(false);
}

void ButtonLights::Update(bool force) {
    bool connected = false;
    if (device_.GetDeviceConnectState(connected) && !connected) return;

    const bool temporaryDisable = status_.IsTemporarilyDisabled();
    const bool tabletModeDisable = status_.IsTabletModeDisabled();
    if (temporaryDisable || tabletModeDisable) {
        GetLogger()->Log(kLogInfo, "Update",
                         "Can't update Vela state because TemporaryDisable (%d) or "
                         "TabletModeDisable (%d)",
                         temporaryDisable, tabletModeDisable);
        return;
    }
    // The ticket is drawn before any state is read: the report shows all that was set before.
    OutputQueue::Ticket ticket = writer_.Draw();
    const bool driven =
        device_.IsInitialized() && status_.IsFeatureEnabled() && status_.IsActivated();
    std::vector<BYTE> report = Compose({driven, brightness_});
    writer_.Enqueue(std::move(ticket), std::move(report), force);
}

std::vector<BYTE> ButtonLights::DarkReport() { return Compose({}); }

std::vector<BYTE> ButtonLights::Compose(const LedState& state) {
    const std::shared_ptr<OpenTouchpad> touchpad = device_.Current();
    if (touchpad->information == nullptr) return {};
    std::vector<BYTE> report(touchpad->information->caps.OutputReportByteLength);
    UpdateLedCtrl(*touchpad->information, state, buttons_, report);
    return report;
}

bool ButtonLights::UpdateVelaState() {
    const std::shared_ptr<OpenTouchpad> touchpad = device_.Current();
    if (!device_.IsInitialized() || touchpad->information == nullptr) return false;

    const CHIDInformation& information = *touchpad->information;
    HIDP_BUTTON_CAPS request{};
    if (!information.GetButtonCaps(HidP_Output, USAGE_REQUEST, request)) return false;
    // Touchpads of the second report layout report their state by themselves and take this report
    // for another one.
    if (request.ReportID == kSecondLayoutReportId) return false;

    std::vector<BYTE> report(information.caps.OutputReportByteLength);
    if (OutputReport(information, report).SetButtons(ButtonUsages(USAGE_REQUEST)) < 0) {
        const auto error = static_cast<int>(GetLastError());
        GetLogger()->Log(kLogWarning, "UpdateVelaState",
                         "HidP_SetUsages HidP_Output USAGE_REQUEST GetLastError(%d).", error);
        return false;
    }
    OutputQueue::Ticket ticket = writer_.Draw();
    // The request is laid out for this touchpad, which may have been closed meanwhile.
    if (device_.Current() != touchpad) return false;
    GetLogger()->Log(kLogInfo, "UpdateVelaState", "UpdateVelaState.");
    return writer_.Enqueue(std::move(ticket), std::move(report), true);
}

}  // namespace vela
