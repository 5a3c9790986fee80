// Models a session with one touchpad: what the exports return, which callbacks the host gets and
// which reports the touchpad receives, without threads, handles or platform calls.
//
// A test makes each call both to the agent and to the model, and compares. Not thread-safe.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "testing/kit/ReportComposer.h"

namespace kit {

class SessionModel {
 public:
    // Starts with the touchpad plugged in and no session opened in this process before, but with
    // its product string read already.
    explicit SessionModel(const TouchpadLayout& layout);

    // --- the machine -----------------------------------------------------------------------------
    void PlugIn() { plugged_ = true; }
    void Unplug();
    // Another process has the touchpad open.
    void HoldElsewhere(bool held) { heldElsewhere_ = held; }
    // Another user's session holds the mutex.
    void HoldMutexElsewhere(bool held) { mutexHeldElsewhere_ = held; }
    // Handles an input report. `usages` ascend.
    void Receive(std::uint8_t reportId, const std::vector<std::uint16_t>& usages,
                 std::uint32_t firmwareState);

    // --- the exports -----------------------------------------------------------------------------
    std::int32_t Init();
    // The agent may drop the reports of the closing, all but the last.
    bool UnInit();
    bool IsVelaPresent() const;
    void SetButtonPressCallback(bool set) { hasPressCallback_ = set; }
    void SetStatusChangeCallback(bool set) { hasStatusCallback_ = set; }
    bool EnableFeature(bool enable);
    bool IsFeatureEnabled() const { return featureEnabled_; }
    bool Activate(std::uint32_t activation);
    bool IsActivated() const { return activation_ <= 1; }
    bool EnableSingleButton(std::uint32_t buttonId, bool enable);
    bool IsSingleButtonEnabled(std::uint32_t buttonId);
    bool SetButtonVisible(std::uint32_t buttonId, bool visible);
    bool SetButtonLight(std::uint32_t buttonId, bool on);
    bool EnableChatBreathing(bool enable);
    bool IsChatBreathingEnabled();
    bool SetButtonBreathing(std::uint32_t buttonId, bool on);
    void SetBrightness(std::uint32_t level);
    std::uint32_t GetBrightness() const { return brightness_; }
    bool SetClickMode(std::uint32_t mode, std::uint16_t value);
    bool GetClickMode() const { return CanAccessClickMode() && clickModeValue_ != 0; }
    bool UpdateVelaState();
    bool IsDetachable() const { return detachable_; }
    bool IsSupportBiDirectionSwipe() const;

    // --- for comparing ---------------------------------------------------------------------------
    const TouchpadLayout& Layout() const { return layout_; }
    bool HasClickMode() const { return layout_.hasFeatureReport; }
    bool IsOpen() const { return open_; }
    bool IsPlugged() const { return plugged_; }
    // Returns whether the session's handle still reaches the touchpad.
    bool IsConnected() const { return connected_; }
    bool IsTemporarilyDisabled() const { return temporaryDisable_; }
    bool IsDisabled() const { return temporaryDisable_ || tabletModeDisable_; }
    std::uint16_t ClickModeValue() const { return clickModeValue_; }
    // The last unforced report. An equal one is not written again.
    const Bytes& LastReport() const { return lastReport_; }
    Bytes BlankReport() const { return composer_.Blank(); }

    // Return what came since the last call, in order: reports at the touchpad; callbacks as "press
    // 0 1" and "status 3".
    std::vector<Bytes> TakeReports() { return std::exchange(reports_, {}); }
    std::vector<std::string> TakeCallbacks() { return std::exchange(callbacks_, {}); }

 private:
    bool SetFlag(std::uint32_t buttonId, bool ButtonState::*flag, bool value);
    void SeedButtons(bool present);
    void HideButtons();
    bool CanAccessClickMode() const;
    void Update(bool force);
    Bytes ComposeLights();
    void Write(const Bytes& report, bool force);
    void ReceiveFirmwareState(std::uint32_t state);
    void ReceiveUsage(std::uint8_t reportId, unsigned usage);
    void Press(std::uint32_t buttonId, bool togglesLight);
    std::uint32_t StatusOr(std::uint32_t undisturbed) const;
    void NotifyPress(std::uint32_t buttonId, bool newLight);
    void NotifyStatus(std::uint32_t status);
    void NotifyStatusWhileActive(std::uint32_t status);

    const TouchpadLayout layout_;
    const ReportComposer composer_;
    const bool detachable_;

    bool plugged_ = true;
    bool heldElsewhere_ = false;
    bool mutexHeldElsewhere_ = false;
    std::uint16_t clickModeValue_ = 0;  // in the touchpad

    bool open_ = false;
    bool connected_ = false;
    bool featureEnabled_ = false;
    std::uint32_t activation_ = 4;
    std::uint8_t brightness_ = 3;
    bool temporaryDisable_ = false;
    bool tabletModeDisable_ = false;
    bool hasPressCallback_ = false;
    bool hasStatusCallback_ = false;
    ButtonStates buttons_;
    ButtonStates savedButtons_;
    Bytes lastReport_;

    std::vector<Bytes> reports_;
    std::vector<std::string> callbacks_;
};

}  // namespace kit
