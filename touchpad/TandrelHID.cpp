#include "touchpad/TandrelHID.h"

#include "log/ILog.h"
#include "platform/Lock.h"
#include "touchpad/BiDirectionSwipe.h"
#include "touchpad/ClickMode.h"
#include "touchpad/LastWords.h"
#include "touchpad/TouchpadDiscovery.h"

namespace vela {
namespace {

std::uint32_t AlreadyOpen() {
    GetLogger()->Log(kLogInfo, "Initialize", "Initialize re-initialize, return true immediately.");
    return kHidOpen;
}

// Holds the id of the thread that closes the session, while it does.
class ClosingThread {
 public:
    explicit ClosingThread(std::atomic<std::thread::id>& id) : id_(id) {
        id_.store(std::this_thread::get_id());
    }
    ~ClosingThread() { id_.store(std::thread::id()); }
    ClosingThread(const ClosingThread&) = delete;
    ClosingThread& operator=(const ClosingThread&) = delete;

 private:
    std::atomic<std::thread::id>& id_;
};

}  // namespace

CTandrelHID::CTandrelHID()
    : reader_(device_, [this](const CHIDInformation& information, std::vector<BYTE>& report,
                              std::vector<USAGE>& usages) {
          input_.HandleInputReport(information, report, usages);
      }) {}

std::shared_ptr<const CHIDInformation> CTandrelHID::Information() const {
    return device_.Current()->information;
}

// --- opening -------------------------------------------------------------------------------------

std::uint32_t CTandrelHID::Initialize(const std::shared_ptr<const CHIDInformation>& information) {
    constexpr const char* kFunction = "Initialize";
    ILog* const log = GetLogger();
    log->Log(kLogInfo, kFunction,
             "================= CTandrelHID initialize start =================");
    if (information == nullptr) {
        log->Log(kLogWarning, kFunction, "Initialize failed, HID info is null pointer.");
        return kHidFailed;
    }
    if (device_.IsInitialized()) return AlreadyOpen();
    const Lock lock(openingMutex_);
    return OpenSession(information);
}

std::uint32_t CTandrelHID::OpenSession(const std::shared_ptr<const CHIDInformation>& information) {
    // Another thread may have opened the session while this one waited for the mutex.
    if (device_.IsInitialized()) return AlreadyOpen();
    const std::uint32_t result = device_.Open(information);
    if (result != kHidOpen) return result;
    buttons_.Seed(true);
    // Without its events the session could neither wait for a report nor be stopped.
    if (!reader_.Prepare() || !writer_.Prepare()) {
        const auto error = static_cast<int>(GetLastError());
        GetLogger()->Log(kLogError, "Initialize",
                         "Initialize failed, CreateEvent failed GetLastError(%d).", error);
        device_.Close();
        return kHidFailed;
    }
    try {
        StartThreads();
    } catch (...) {
        device_.Close();
        throw;
    }
    heartbeat_.Permit();
    status_.Open();
    device_.SetInitialized(true);
    status_.SetTabletModeDisable(false);
    device_.MarkSessionOpen();
    GetLogger()->Log(kLogInfo, "Initialize",
                     "================= CTandrelHID initialize succeeded =================");
    return kHidOpen;
}

void CTandrelHID::StartThreads() {
    reader_.Start(device_.Current());
    try {
        writer_.Start(device_.Current());
    } catch (...) {
        reader_.Stop();
        reader_.Join();
        throw;
    }
}

// --- closing -------------------------------------------------------------------------------------

bool CTandrelHID::Uninitialize() {
    constexpr const char* kFunction = "Uninitialize";
    ILog* const log = GetLogger();
    log->Log(kLogInfo, kFunction, "================= Uninitialize starts. =================");
    if (!device_.IsInitialized()) return false;
    if (closingThread_ == std::this_thread::get_id()) {
        log->Log(kLogWarning, kFunction,
                 "Uninitialize failed, called from a callback of the closing itself.");
        return false;
    }
    const Lock operationLock(operationMutex_);
    // Another thread may have closed the session while this one waited for the mutex.
    if (!device_.IsInitialized()) return false;
    const ClosingThread closing(closingThread_);

    buttons_.Seed(false);
    Enable(false);
    EndReports();
    CloseSession();
    log->Log(kLogInfo, kFunction, "================= Uninitialize succeed. =================");
    return true;
}

// Darkens the touchpad and ends the threads.
void CTandrelHID::EndReports() {
    constexpr const char* kFunction = "Uninitialize";
    ILog* const log = GetLogger();
    const std::shared_ptr<OpenTouchpad> touchpad = device_.Current();
    LastWords lastWords(writer_, *touchpad, lights_.DarkReport());
    lastWords.Write();

    reader_.Stop();
    writer_.Stop();
    // The query is made for its log line only. Its result is ignored: a heartbeat that was started
    // while the product string could not be read has to stop as well.
    IsDetachable();
    heartbeat_.Forbid();
    writer_.ForgetLastReport();

    log->Log(kLogInfo, kFunction, "Uninitialize, wait for read input report thread finish.");
    reader_.Join();
    log->Log(kLogInfo, kFunction, "Uninitialize, wait for write output report thread finish.");
    writer_.Join();
    lastWords.RepeatIfOvertaken();
}

void CTandrelHID::CloseSession() {
    const Lock lock(openingMutex_);
    buttons_.Clear();
    status_.ClearCallbacks();
    device_.SetInitialized(false);
    device_.Close();
    status_.Close();
}

// --- discovery -----------------------------------------------------------------------------------

HidDeviceFilterList CTandrelHID::GetHidDeviceFilters() {
    return TouchpadDiscovery().GetHidDeviceFilters();
}

HidCapUsagePageList CTandrelHID::GetValueCapUsagePages() {
    return TouchpadDiscovery().GetValueCapUsagePages();
}

HidCapUsagePageList CTandrelHID::GetButtonCapUsagePages() {
    return TouchpadDiscovery().GetButtonCapUsagePages();
}

// --- buttons -------------------------------------------------------------------------------------

bool CTandrelHID::IsButtonEnabled(std::uint32_t buttonId) {
    const ButtonState button = buttons_.Copy(buttonId);
    return button.present && button.enabled;
}

bool CTandrelHID::IsButtonBreathingEnabled(std::uint32_t buttonId) {
    const ButtonState button = buttons_.Copy(buttonId);
    return button.present && button.breathingEnabled;
}

// --- feature settings and queries ----------------------------------------------------------------

bool CTandrelHID::SetClickMode(std::uint32_t mode, std::uint16_t value) {
    const std::shared_ptr<OpenTouchpad> touchpad = device_.Current();
    return device_.IsInitialized() && vela::SetClickMode(*touchpad, mode, value);
}

bool CTandrelHID::GetClickMode() {
    const std::shared_ptr<OpenTouchpad> touchpad = device_.Current();
    return device_.IsInitialized() && vela::GetClickMode(*touchpad);
}

bool CTandrelHID::IsSupportBiDirectionSwipe() const {
    const std::shared_ptr<const CHIDInformation> information = Information();
    return device_.IsInitialized() && information != nullptr &&
           SupportsBiDirectionSwipe(*information);
}

bool CTandrelHID::Enable(bool enable) {
    if (!device_.IsInitialized()) return false;
    if (!enable) {
        if (status_.IsTemporarilyDisabled() && !status_.IsTabletModeDisabled() &&
            status_.HasStatusChangeCallback() && status_.IsActivated()) {
            status_.SetTemporaryDisable(false);
            status_.ReportStatus(kStatusNormal);
        }
        lights_.SetButtonBreathing(BUTTON_ID_CHAT, false);
    }
    status_.EnableFeature(enable);
    GetLogger()->Log(kLogInfo, "Enable", "Enable HID (%d)", enable);
    lights_.Update(false);
    return true;
}

bool CTandrelHID::Activate(std::uint32_t value) {
    if (!device_.IsInitialized()) return false;
    if (value == status_.Activation()) return true;
    PrepareActivation(value);
    // A session that was closed meanwhile stays deactivated.
    if (!status_.SetActivation(value, [this] { lights_.Update(true); })) return false;
    // A deactivation is reported a second time: hosts rely on a report before the lights go out and
    // on one after.
    status_.ReportStatus(status_.IsActivated() ? status_.StatusOr(value) : value);
    GetLogger()->Log(kLogInfo, "Activate", "Activate HID (%d)", static_cast<int>(value));
    return true;
}

void CTandrelHID::PrepareActivation(std::uint32_t value) {
    switch (value) {
        case kActive:
        case kActiveHostSetsLights:
            if (status_.Activation() == kSuspended) buttons_.Restore();
            StopHeartbeat();
            StartHeartbeat();
            break;
        case kDeactivated:
            StopHeartbeat();
            lights_.SetButtonBreathing(BUTTON_ID_CHAT, false);
            status_.ReportStatus(kStatusDeactivated);
            buttons_.HideAll();
            break;
        case kSuspended:
            StopHeartbeat();
            buttons_.Save();
            buttons_.HideAll();
            break;
        default:
            break;
    }
}

// --- heartbeat -----------------------------------------------------------------------------------

void CTandrelHID::StopHeartbeat() {
    // The query is made for its log line only, as in EndReports.
    IsDetachable();
    heartbeat_.Stop();
}

void CTandrelHID::StartHeartbeat() {
    if (!IsDetachable()) return;
    // Closing does not join the heartbeat, so it must neither keep the touchpad's record nor write
    // to the touchpad that is opened next.
    const std::weak_ptr<OpenTouchpad> weak = device_.Current();
    heartbeat_.Start([this, weak] {
        if (const std::shared_ptr<OpenTouchpad> touchpad = weak.lock()) SendHeartbeat(*touchpad);
    });
}

// Holds no lock while it writes or updates, so its write may overlap one of the writer thread.
void CTandrelHID::SendHeartbeat(OpenTouchpad& touchpad) {
    if (status_.IsTemporarilyDisabled()) {
        lights_.UpdateVelaState();
    } else if (buttons_.Copy(BUTTON_ID_CHAT).breathingState != kBreathingRunning) {
        writer_.WriteOutputReportInternal(touchpad, writer_.LastReport(), true);
    } else {
        // Repeating the report that started breathing would restart it; a new report carries the
        // value that continues it.
        lights_.Update(true);
    }
}

}  // namespace vela
