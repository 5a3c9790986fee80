#include "touchpad/SessionStatus.h"

#include "platform/Lock.h"

namespace vela {

void SessionStatus::Open() {
    const Lock lock(mutex_);
    open_ = true;
}

void SessionStatus::Close() {
    const Lock lock(mutex_);
    open_ = false;
    activation_ = kDeactivated;
    featureEnabled_ = false;
}

bool SessionStatus::IsActivated() const {
    const std::uint32_t state = activation_;
    return state == kActive || state == kActiveHostSetsLights;
}

bool SessionStatus::SetActivation(std::uint32_t value, const std::function<void()>& update) {
    const Lock lock(mutex_);
    if (!open_) return false;
    activation_ = value;
    if (value == kDeactivated) TemporaryDisable_ = false;
    update();
    return true;
}

void SessionStatus::EnableFeature(bool enable) {
    const Lock lock(mutex_);
    if (open_) featureEnabled_ = enable;
}

void SessionStatus::SetFirmwareState(bool tabletModeDisable, bool temporaryDisable) {
    const Lock lock(mutex_);
    TabletModeDisable_ = tabletModeDisable;
    TemporaryDisable_ = temporaryDisable;
}

void SessionStatus::ClearCallbacks() {
    buttonPress_ = nullptr;
    statusChange_ = nullptr;
}

void SessionStatus::ReportPress(std::uint32_t buttonId, bool newLightState) const {
    if (const ButtonPressCallback callback = buttonPress_) callback(buttonId, newLightState);
}

void SessionStatus::ReportStatus(std::uint32_t status) const {
    if (const StatusChangeCallback callback = statusChange_) callback(status);
}

void SessionStatus::ReportStatusWhileActive(std::uint32_t status) const {
    if (IsActivated()) ReportStatus(status);
}

std::uint32_t SessionStatus::StatusOr(std::uint32_t undisturbed) const {
    if (TabletModeDisable_) return kStatusDisabled;
    if (TemporaryDisable_) return kStatusTemporarilyDisabled;
    return undisturbed;
}

}  // namespace vela
