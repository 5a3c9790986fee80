// Handles input reports and notifies the host.
#include "testing/kit/SessionModel.h"

namespace kit {
namespace {

constexpr std::uint32_t kCamera = 0;
constexpr std::uint32_t kMicrophone = 1;
constexpr std::uint32_t kChat = 2;
constexpr std::uint32_t kShareScreen = 3;

}  // namespace

void SessionModel::Receive(std::uint8_t reportId, const std::vector<std::uint16_t>& usages,
                           std::uint32_t firmwareState) {
    if (!open_ || !connected_) return;
    if (usages.empty() && reportId != 0x10) ReceiveFirmwareState(firmwareState);
    for (const std::uint16_t usage : usages) ReceiveUsage(reportId, usage);
}

void SessionModel::ReceiveFirmwareState(std::uint32_t state) {
    tabletModeDisable_ = (state & 0x80U) != 0;
    temporaryDisable_ = (state & 0x20U) != 0;
    NotifyStatusWhileActive(StatusOr(0));
}

void SessionModel::ReceiveUsage(std::uint8_t reportId, unsigned usage) {
    switch (usage) {
        case 0x40:  // resynchronise
            if (tabletModeDisable_) return;
            temporaryDisable_ = false;
            SetButtonBreathing(kChat, false);
            Update(true);
            return NotifyStatusWhileActive(0);
        case 0x41:
            return Press(kCamera, true);
        case 0x42:
            return Press(kShareScreen, false);
        case 0x43:
            return Press(kChat, false);
        case 0x44:
            return Press(kMicrophone, true);
        case 0x45:  // the disabling gesture
            if (!IsActivated()) return;
            temporaryDisable_ = true;
            return NotifyStatus(2);
        case 0x46:  // enabled
            tabletModeDisable_ = false;
            if (reportId == 0x10) temporaryDisable_ = false;
            NotifyStatusWhileActive(temporaryDisable_ ? 2 : 0);
            SetButtonBreathing(kChat, false);
            return Update(false);
        case 0x47:  // disabled
            tabletModeDisable_ = true;
            return NotifyStatusWhileActive(3);
        default:
            return;
    }
}

void SessionModel::Press(std::uint32_t buttonId, bool togglesLight) {
    const ButtonState button = buttons_[buttonId];
    if (!button.enabled) return;
    NotifyPress(buttonId, !button.lightOn);
    if (togglesLight && activation_ != 1) SetButtonLight(buttonId, !button.lightOn);
}

std::uint32_t SessionModel::StatusOr(std::uint32_t undisturbed) const {
    if (tabletModeDisable_) return 3;
    return temporaryDisable_ ? 2 : undisturbed;
}

void SessionModel::NotifyPress(std::uint32_t buttonId, bool newLight) {
    if (!hasPressCallback_) return;
    callbacks_.push_back("press " + std::to_string(buttonId) + (newLight ? " 1" : " 0"));
}

void SessionModel::NotifyStatus(std::uint32_t status) {
    if (hasStatusCallback_) callbacks_.push_back("status " + std::to_string(status));
}

void SessionModel::NotifyStatusWhileActive(std::uint32_t status) {
    if (IsActivated()) NotifyStatus(status);
}

}  // namespace kit
