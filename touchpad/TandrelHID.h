// The session with the button touchpad.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <windows.h>

#include "hid/HIDInformation.h"
#include "platform/SlimMutex.h"
#include "platform/Turnstile.h"
#include "touchpad/ButtonTable.h"
#include "touchpad/IHid.h"
#include "touchpad/OverlappedOperation.h"

namespace vela {

class OutputReport;
struct LedControl;

using ButtonPressCallback = void (*)(std::uint32_t buttonId, std::uint32_t newLightState);
using StatusChangeCallback = void (*)(std::uint32_t status);

// What the host is told of the touchpad; the activation value is passed on as it is.
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
    kSuspended = 5,  // the button table is kept aside
};

// Opens the touchpad, keeps a reader, a writer and (when it is detachable) a heartbeat thread on
// it, turns the host's wishes into whole output and feature reports, and its input reports into the
// host's callbacks. One exists per process, behind the exports; any thread may call any operation.
// The host's callbacks are called with no lock held.
//
// Lock order: Uninitialize holds `operationMutex_` and takes the others one at a time. Activate
// holds `statusMutex_` while Update takes those it needs. Whoever has a turn of `composers_` takes
// `buttonMutex_` and then, when the earlier turns are over, `queueMutex_`; nobody draws a turn with
// either of them. The writer holds `queueMutex_` while a write takes `deviceQueryMutex_` and then
// `lastReportMutex_`, so whoever queues a report waits for the write in flight. A start of the
// heartbeat holds `heartbeatStartMutex_`. `productMutex_` and the mutex of the operations are taken
// last, under any of these.
//
// Some state is read and written without a lock, as the members say: one byte or pointer each,
// where a reader that comes a moment early sees the older value.
class CTandrelHID : public IHid {
 public:
    CTandrelHID() = default;
    // Ends the process when one of the threads was not joined, as a thread object's own destruction
    // would: the session lives until process exit, and this tells a host that left it open.
    ~CTandrelHID() override;

    // --- IHid: lifecycle -------------------------------------------------------------------------
    HidDeviceFilterList GetHidDeviceFilters() override;
    HidCapUsagePageList GetValueCapUsagePages() override;
    HidCapUsagePageList GetButtonCapUsagePages() override;
    // Throws std::system_error when a thread cannot be started; the session is closed then.
    std::uint32_t Initialize(const std::shared_ptr<const CHIDInformation>& information) override;
    // Blocks for a write in flight, at most 30 s each. Called from a host callback it throws
    // std::system_error: the reader thread cannot wait for itself.
    bool Uninitialize() override;

    bool IsInitialized() const { return initialized_; }
    void SetButtonPressCallback(ButtonPressCallback callback) { buttonPressCallback_ = callback; }
    void SetStatusChangeCallback(StatusChangeCallback callback) {
        statusChangeCallback_ = callback;
    }
    // The record of the open device; null while closed.
    std::shared_ptr<const CHIDInformation> Information() const;

    // --- button model ----------------------------------------------------------------------------
    // Change one button's flag and queue a new output report. False while the session is closed.
    bool EnableButton(std::uint32_t buttonId, bool enable);
    bool EnableButtonBreathing(std::uint32_t buttonId, bool enable);
    bool SetButtonVisible(std::uint32_t buttonId, bool visible);
    bool SetButtonLight(std::uint32_t buttonId, bool on);
    bool SetButtonBreathing(std::uint32_t buttonId, bool on);
    bool IsButtonEnabled(std::uint32_t buttonId);
    bool IsButtonBreathingEnabled(std::uint32_t buttonId);

    // 0 (dark) to 255, written into every lit LED usage. Ignored while the session is closed.
    void SetBrightness(std::uint8_t level);
    std::uint8_t GetBrightness() const { return brightness_; }

    // Asks the firmware for its state. False when the touchpad has no such request.
    bool UpdateVelaState();

    // --- feature settings and queries ------------------------------------------------------------
    bool SetClickMode(std::uint32_t mode, std::uint16_t value);
    bool GetClickMode();
    // True when the question could be answered, that is while the session is open.
    bool GetDeviceConnectState(bool& connected);
    bool IsDetachable();
    // False while the session is closed.
    bool IsSupportBiDirectionSwipe() const;
    bool Enable(bool enable);
    bool IsEnabled() const { return featureEnabled_; }
    bool Activate(std::uint32_t value);
    bool IsActivated() const;

 private:
    struct OutputItem {
        std::vector<BYTE> report;
        bool force;  // written even when equal to the last report
    };
    struct PressedButton;
    struct InputUsage;
    static const InputUsage kInputUsages[];

    // --- lifecycle (TandrelHIDLifecycle.cpp) ---
    bool CreateEvents();
    void StartReportThreads();
    void MarkSessionOpen();
    void CloseDevice();
    void SeedButtons(bool present);

    // --- report threads (TandrelHIDReportThreads.cpp, TandrelHIDHeartbeat.cpp) ---
    void ReadInputReportThread();
    bool ReadInputReport(OverlappedOperation& read);
    void WriteOutputReportThread();
    bool EnqueueOutputReport(const Turnstile::Turn& turn, std::vector<BYTE> report, bool force);
    bool WriteOutputReportInternal(const std::vector<BYTE>& report, bool force);
    bool WriteAndWait(const std::vector<BYTE>& report);
    bool WaitForWrite(OverlappedOperation& write, HANDLE device, DWORD& error);
    bool IsLastReport(const std::vector<BYTE>& report);
    std::vector<BYTE> LastReport();
    void HeartbeatThread();
    void SendHeartbeat();
    void StopHeartbeat();
    void StartHeartbeat();

    // --- button model and output reports (TandrelHIDButtons.cpp, TandrelHIDLedControl.cpp) ---
    std::vector<BYTE> EmptyOutputReport() const;
    ButtonState CopyButton(std::uint32_t buttonId);
    void SetButtonFlag(std::uint32_t buttonId, Relaxed<bool> ButtonState::*flag, bool value);
    void ResetButtonVisibility();
    void Update(bool force);
    void UpdateLedCtrl(std::vector<BYTE>& report);
    void ComposeLit(OutputReport& report);
    void ComposeShownButton(const LedControl& row, const ButtonState& button, OutputReport& report);
    ULONG NextBreathingValue(const ButtonState& chat);

    // --- input handling (TandrelHIDInput.cpp) ---
    // `usages`: a list of as many as a report can hold at once, whatever is in it.
    void HandleInputReport(std::vector<BYTE>& report, std::vector<USAGE>& usages);
    void HandleFirmwareState(std::vector<BYTE>& report, const CHIDInformation& information);
    void HandleSync(UCHAR reportId, const PressedButton& button);
    void HandleButtonPress(UCHAR reportId, const PressedButton& button);
    void HandleGesture(UCHAR reportId, const PressedButton& button);
    void HandleEnabled(UCHAR reportId, const PressedButton& button);
    void HandleDisabled(UCHAR reportId, const PressedButton& button);
    std::uint32_t StatusOr(std::uint32_t undisturbed) const;
    void ReportStatus(std::uint32_t status) const;
    void ReportStatusWhileActive(std::uint32_t status) const;

    // --- state ---
    std::atomic<bool> initialized_{false};
    std::atomic<bool> featureEnabled_{false};
    std::atomic<std::uint32_t> activationState_{kDeactivated};
    std::mutex buttonMutex_;  // guards: buttons_, but for UpdateLedCtrl's and Activate's reads
    std::mutex readMutex_;    // guards: issuing a read against the stop
    ButtonTable buttons_;
    ButtonTable::MeetingButtons savedButtons_;  // Activate's only
    std::atomic<std::uint8_t> brightness_{3};   // no lock
    std::atomic<bool> stop_{false};
    std::thread readerThread_;
    std::thread writerThread_;
    // Drawn from before a light report is composed: reports are queued in this order, so that the
    // last one shows whatever was set before it, however long its composer waited for the queue.
    Turnstile composers_;
    SlimMutex queueMutex_;  // guards: outputQueue_, and held while the writer writes
    SlimConditionVariable queueCondition_;
    std::deque<OutputItem> outputQueue_;
    std::atomic<HANDLE> readEvent_{nullptr};   // auto-reset: one reader waits on it
    std::atomic<HANDLE> writeEvent_{nullptr};  // manual-reset: several writers may wait at once
    std::atomic<ButtonPressCallback> buttonPressCallback_{nullptr};    // no lock
    std::atomic<StatusChangeCallback> statusChangeCallback_{nullptr};  // no lock
    std::atomic<bool> TemporaryDisable_{false};
    std::atomic<bool> TabletModeDisable_{false};
    HANDLE deviceMutex_ = nullptr;  // of this session's own making only
    // Read and replaced through std::atomic_load and std::atomic_store: a heartbeat on its way out
    // may still hold the record while Uninitialize releases it.
    std::shared_ptr<const CHIDInformation> information_;
    std::atomic<HANDLE> device_{nullptr};
    std::mutex lastReportMutex_;  // guards: lastReport_
    std::vector<BYTE> lastReport_;
    std::thread heartbeatThread_;
    std::mutex heartbeatMutex_;  // guards: heartbeatStop_
    std::condition_variable heartbeatCondition_;
    bool heartbeatStop_ = false;
    std::mutex deviceQueryMutex_;  // guards: the connection probe, one at a time
    std::wstring productString_;   // under productMutex_; kept for the life of the session object
    std::mutex operationMutex_;    // guards: Uninitialize, one at a time
    std::mutex statusMutex_;       // guards: changes of the activation state and the status flags
    std::mutex productMutex_;
    std::mutex heartbeatStartMutex_;  // guards: heartbeatThread_, joined and started under it
    OverlappedOperations operations_;
};

}  // namespace vela
