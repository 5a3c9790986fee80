// The session's status: the two switches (activation and feature), the two ways in which the
// touchpad is disabled, and the callbacks that notify the host.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

#include "platform/Mutex.h"

namespace vela {

using ButtonPressCallback = void (*)(std::uint32_t buttonId, std::uint32_t newLightState);
using StatusChangeCallback = void (*)(std::uint32_t status);

// The status values that the host is notified of, besides the activation values.
enum TouchpadStatus : std::uint32_t {
    kStatusNormal = 0,
    kStatusTemporarilyDisabled = 2,
    kStatusDisabled = 3,
    kStatusDeactivated = 4,
};

// Activation states with a meaning here. Others are stored and reported back, nothing else.
enum ActivationState : std::uint32_t {
    kActive = 0,
    kActiveHostSetsLights = 1,  // a press is reported, its light left to the host
    kDeactivated = 4,
    kSuspended = 5,  // the button table is saved
};

// Any thread may call any operation. Callbacks are called without a lock. Everything that is read
// or written without one is atomic; a reader may see the older value for a moment.
class SessionStatus {
 public:
    SessionStatus() = default;
    SessionStatus(const SessionStatus&) = delete;
    SessionStatus& operator=(const SessionStatus&) = delete;

    // The switches can be changed between Open and Close. A late call, begun by another thread
    // while the session was open, changes nothing. Close deactivates the session and switches its
    // feature off. A temporary disable outlives a session.
    void Open();
    void Close();

    std::uint32_t Activation() const { return activation_; }
    // Returns whether lights are driven and the touchpad's own changes are reported.
    bool IsActivated() const;
    // Stores the state and calls `update` in one step: SetFirmwareState runs before or after both.
    // Deactivating ends a temporary disable. Returns false when the session is closed.
    bool SetActivation(std::uint32_t value, const std::function<void()>& update);

    bool IsFeatureEnabled() const { return featureEnabled_; }
    void EnableFeature(bool enable);

    bool IsTemporarilyDisabled() const { return TemporaryDisable_; }
    bool IsTabletModeDisabled() const { return TabletModeDisable_; }
    void SetTemporaryDisable(bool disabled) { TemporaryDisable_ = disabled; }
    void SetTabletModeDisable(bool disabled) { TabletModeDisable_ = disabled; }
    // Sets both flags in one step, as the firmware reports them.
    void SetFirmwareState(bool tabletModeDisable, bool temporaryDisable);

    void SetButtonPressCallback(ButtonPressCallback callback) { buttonPress_ = callback; }
    void SetStatusChangeCallback(StatusChangeCallback callback) { statusChange_ = callback; }
    bool HasStatusChangeCallback() const { return statusChange_ != nullptr; }
    void ClearCallbacks();

    // Notify the host, on the calling thread, when it has registered the callback.
    void ReportPress(std::uint32_t buttonId, bool newLightState) const;
    void ReportStatus(std::uint32_t status) const;
    void ReportStatusWhileActive(std::uint32_t status) const;
    // Returns how the touchpad is disabled, or `undisturbed` when it is not.
    std::uint32_t StatusOr(std::uint32_t undisturbed) const;

 private:
    Mutex mutex_;  // guards: open_, and changes of the activation, the feature and both flags
    bool open_ VELA_GUARDED_BY(mutex_) = false;
    std::atomic<std::uint32_t> activation_{kDeactivated};
    std::atomic<bool> featureEnabled_{false};
    std::atomic<bool> TemporaryDisable_{false};                // SetTemporaryDisable takes no lock
    std::atomic<bool> TabletModeDisable_{false};               // likewise
    std::atomic<ButtonPressCallback> buttonPress_{nullptr};    // no lock
    std::atomic<StatusChangeCallback> statusChange_{nullptr};  // no lock
};

}  // namespace vela
