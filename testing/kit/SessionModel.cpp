#include "testing/kit/SessionModel.h"

namespace kit {
namespace {

constexpr std::uint32_t kCamera = 0;
constexpr std::uint32_t kMicrophone = 1;
constexpr std::uint32_t kChat = 2;
constexpr std::uint32_t kShareScreen = 3;
constexpr std::uint32_t kButtonCount = 4;

// A touchpad without a product string counts as detachable.
bool IsDetachableName(std::wstring name) {
    for (wchar_t& letter : name) {
        if (letter >= L'A' && letter <= L'Z') letter += L'a' - L'A';
    }
    return name.empty() || name.find(L"morlo") != std::wstring::npos ||
           name.find(L"detachable") != std::wstring::npos;
}

}  // namespace

SessionModel::SessionModel(const TouchpadLayout& layout)
    : layout_(layout), composer_(layout), detachable_(IsDetachableName(layout.productString)) {}

void SessionModel::Unplug() {
    plugged_ = false;
    heldElsewhere_ = false;
    connected_ = false;
}

void SessionModel::Receive(std::uint8_t reportId, const std::vector<std::uint16_t>& usages,
                           std::uint32_t firmwareState) {
    if (!open_ || !connected_) return;
    if (usages.empty() && reportId != 0x10) ReceiveFirmwareState(firmwareState);
    for (const std::uint16_t usage : usages) ReceiveUsage(reportId, usage);
}

std::int32_t SessionModel::Init() {
    if (!plugged_) return 2;
    if (open_) return 1;
    if (heldElsewhere_) return 3;
    open_ = true;
    connected_ = true;
    SeedButtons(true);
    lastReport_.clear();
    tabletModeDisable_ = false;
    return 1;
}

bool SessionModel::UnInit() {
    if (!open_) return false;
    SeedButtons(false);
    EnableFeature(false);
    Write(ComposeLights(), false);
    lastReport_.clear();
    buttons_.clear();
    hasPressCallback_ = false;
    hasStatusCallback_ = false;
    open_ = false;
    connected_ = false;
    activation_ = 4;
    return true;
}

bool SessionModel::IsVelaPresent() const {
    if (open_) return !detachable_ || connected_;
    return mutexHeldElsewhere_ || plugged_;
}

bool SessionModel::EnableFeature(bool enable) {
    if (!open_) return false;
    if (!enable) {
        if (temporaryDisable_ && !tabletModeDisable_ && hasStatusCallback_ && IsActivated()) {
            temporaryDisable_ = false;
            NotifyStatus(0);
        }
        SetButtonBreathing(kChat, false);
    }
    featureEnabled_ = enable;
    Update(false);
    return true;
}

bool SessionModel::Activate(std::uint32_t activation) {
    if (!open_) return false;
    if (activation == activation_) return true;
    if (activation <= 1) {
        if (activation_ == 5) buttons_ = savedButtons_;
    } else if (activation == 4) {
        SetButtonBreathing(kChat, false);
        NotifyStatus(4);
        HideButtons();
    } else if (activation == 5) {
        savedButtons_ = buttons_;
        HideButtons();
    }
    activation_ = activation;
    if (activation == 4) temporaryDisable_ = false;
    Update(true);
    NotifyStatus(IsActivated() ? StatusOr(activation) : activation);
    return true;
}

bool SessionModel::EnableSingleButton(std::uint32_t buttonId, bool enable) {
    return SetFlag(buttonId, &ButtonState::enabled, enable);
}

bool SessionModel::IsSingleButtonEnabled(std::uint32_t buttonId) {
    const ButtonState& button = buttons_[buttonId];
    return button.present && button.enabled;
}

bool SessionModel::SetButtonVisible(std::uint32_t buttonId, bool visible) {
    return SetFlag(buttonId, &ButtonState::visible, visible);
}

bool SessionModel::SetButtonLight(std::uint32_t buttonId, bool on) {
    return SetFlag(buttonId, &ButtonState::lightOn, on);
}

bool SessionModel::EnableChatBreathing(bool enable) {
    return SetFlag(kChat, &ButtonState::breathingEnabled, enable);
}

bool SessionModel::IsChatBreathingEnabled() {
    const ButtonState& chat = buttons_[kChat];
    return chat.present && chat.breathingEnabled;
}

bool SessionModel::SetButtonBreathing(std::uint32_t buttonId, bool on) {
    if (!open_) return false;
    buttons_[buttonId].breathing =
        on ? ButtonState::Breathing::Requested : ButtonState::Breathing::Stopped;
    Update(true);
    return true;
}

void SessionModel::SetBrightness(std::uint32_t level) {
    if (!open_) return;
    brightness_ = static_cast<std::uint8_t>(level);
    Update(false);
}

bool SessionModel::SetClickMode(std::uint32_t mode, std::uint16_t value) {
    if (!CanAccessClickMode()) return false;
    if (mode == 0) clickModeValue_ = 0;
    if (mode == 1) clickModeValue_ = value;
    return true;
}

bool SessionModel::UpdateVelaState() {
    if (!open_ || !layout_.hasRequest) return false;
    if (layout_.requestReportId == virtual_touchpad::kSecondLayoutReportId) return false;
    Write(composer_.StateRequest(), true);
    return true;
}

bool SessionModel::IsSupportBiDirectionSwipe() const {
    if (!open_) return false;
    const bool isOlderFamily = layout_.vendorId == 0x0488 && !layout_.inputReportIds.empty() &&
                               layout_.inputReportIds.back() == 0x10;
    return !isOlderFamily || layout_.versionNumber >= 99;
}

bool SessionModel::SetFlag(std::uint32_t buttonId, bool ButtonState::*flag, bool value) {
    if (!open_) return false;
    buttons_[buttonId].*flag = value;
    Update(false);
    return true;
}

void SessionModel::SeedButtons(bool present) {
    for (std::uint32_t id = 0; id < kButtonCount; ++id) {
        buttons_[id] = ButtonState{};
        buttons_[id].present = present;
    }
}

void SessionModel::HideButtons() {
    for (std::uint32_t id = 0; id < kButtonCount; ++id) buttons_[id].visible = false;
}

bool SessionModel::CanAccessClickMode() const {
    return open_ && connected_ && layout_.hasFeatureReport;
}

void SessionModel::Update(bool force) {
    // The agent checks only a detachable touchpad for being there.
    const bool isKnownToBeGone = open_ && detachable_ && !connected_;
    if (isKnownToBeGone || IsDisabled()) return;
    Write(ComposeLights(), force);
}

Bytes SessionModel::ComposeLights() {
    const bool driven = open_ && featureEnabled_ && IsActivated();
    return driven ? composer_.Lights(buttons_, brightness_) : BlankReport();
}

void SessionModel::Write(const Bytes& report, bool force) {
    if (!connected_) return;
    if (!force && report == lastReport_) return;
    reports_.push_back(report);
    if (!force) lastReport_ = report;
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
