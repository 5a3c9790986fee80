// The session with the button touchpad.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <thread>

#include "hid/HIDInformation.h"
#include "platform/Mutex.h"
#include "touchpad/ButtonLights.h"
#include "touchpad/ButtonTable.h"
#include "touchpad/Heartbeat.h"
#include "touchpad/IHid.h"
#include "touchpad/InputHandler.h"
#include "touchpad/ReportReader.h"
#include "touchpad/ReportWriter.h"
#include "touchpad/SessionStatus.h"
#include "touchpad/TouchpadDevice.h"

namespace vela {

// Opens the touchpad, runs a reader, a writer and (when it is detachable) a heartbeat thread for
// it, turns the host's requests into whole output and feature reports, and input reports into the
// host's callbacks. One exists per process, behind the exports; any thread may call any operation.
// Callbacks are called without a lock, except for the operation mutex inside Uninitialize.
//
// Lock order: Uninitialize holds `operationMutex_` and takes the others one at a time, at its end
// `openingMutex_`, which Initialize holds too, and under which the device is closed. Activate holds
// the status mutex while Update queues a report. A write takes the device's query mutex, the last
// report's and the monitor's, one after the other; a caller that queues a report waits for it.
// Heartbeat::Start holds the start mutex while it takes the heartbeat's own. The mutexes of the
// button table, the product string, the pending operations and a device's handle are taken last,
// under any of these.
class CTandrelHID : public IHid {
 public:
    CTandrelHID();
    // Ends the process when one of the threads was not joined, as the destructor of std::thread
    // does: the session lives until process exit, so a host that left it open notices.
    ~CTandrelHID() override = default;

    HidDeviceFilterList GetHidDeviceFilters() override;
    HidCapUsagePageList GetValueCapUsagePages() override;
    HidCapUsagePageList GetButtonCapUsagePages() override;
    // May have to wait for a closing that another thread has begun. Throws std::system_error when a
    // thread cannot be started; the session is closed then.
    std::uint32_t Initialize(const std::shared_ptr<const CHIDInformation>& information) override;
    // Waits for the writes in flight, at most 30 s each, and for other threads' platform calls on
    // the device. Called from a callback on the reader thread it throws std::system_error, as that
    // thread cannot wait for itself; called from one of its own callbacks it logs a warning and
    // returns false.
    bool Uninitialize() override;

    bool IsInitialized() const { return device_.IsInitialized(); }
    // The record of the open device; null while closed.
    std::shared_ptr<const CHIDInformation> Information() const;
    void SetButtonPressCallback(ButtonPressCallback callback) {
        status_.SetButtonPressCallback(callback);
    }
    void SetStatusChangeCallback(StatusChangeCallback callback) {
        status_.SetStatusChangeCallback(callback);
    }

    // --- buttons and lights: false while the session is closed -----------------------------------
    bool EnableButton(std::uint32_t id, bool enable) { return lights_.EnableButton(id, enable); }
    bool EnableButtonBreathing(std::uint32_t id, bool enable) {
        return lights_.EnableButtonBreathing(id, enable);
    }
    bool SetButtonVisible(std::uint32_t id, bool visible) {
        return lights_.SetButtonVisible(id, visible);
    }
    bool SetButtonLight(std::uint32_t id, bool on) { return lights_.SetButtonLight(id, on); }
    bool SetButtonBreathing(std::uint32_t id, bool on) {
        return lights_.SetButtonBreathing(id, on);
    }
    bool IsButtonEnabled(std::uint32_t buttonId);
    bool IsButtonBreathingEnabled(std::uint32_t buttonId);
    void SetBrightness(std::uint8_t level) { lights_.SetBrightness(level); }
    std::uint8_t GetBrightness() const { return lights_.GetBrightness(); }
    bool UpdateVelaState() { return lights_.UpdateVelaState(); }

    // --- feature settings and queries ------------------------------------------------------------
    bool SetClickMode(std::uint32_t mode, std::uint16_t value);
    bool GetClickMode();
    bool GetDeviceConnectState(bool& connected) { return device_.GetDeviceConnectState(connected); }
    bool IsDetachable() { return device_.IsDetachable(); }
    // Returns false while the session is closed.
    bool IsSupportBiDirectionSwipe() const;
    bool Enable(bool enable);
    bool IsEnabled() const { return status_.IsFeatureEnabled(); }
    bool Activate(std::uint32_t value);
    bool IsActivated() const { return status_.IsActivated(); }

 private:
    std::uint32_t OpenSession(const std::shared_ptr<const CHIDInformation>& information)
        VELA_REQUIRES(openingMutex_);
    void StartThreads();
    void EndReports();
    void CloseSession() VELA_EXCLUDES(openingMutex_);

    void PrepareActivation(std::uint32_t value);
    void StartHeartbeat();
    void StopHeartbeat();
    void SendHeartbeat(OpenTouchpad& touchpad);

    TouchpadDevice device_;  // the parts have locks of their own
    SessionStatus status_;
    ButtonTable buttons_;
    ReportWriter writer_{device_};
    ButtonLights lights_{device_, status_, buttons_, writer_};
    InputHandler input_{status_, buttons_, lights_};
    ReportReader reader_;
    Heartbeat heartbeat_;
    Mutex operationMutex_;  // guards: Uninitialize, one at a time
    Mutex openingMutex_;    // guards: opening and closing the device, one at a time
    // No lock: only the closing thread can find its own id here.
    std::atomic<std::thread::id> closingThread_{};
};

}  // namespace vela
