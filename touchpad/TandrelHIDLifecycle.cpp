// Opening and closing the touchpad, and which collection it looks for.
#include <windows.h>

#include <exception>

#include "log/ILog.h"
#include "touchpad/DeviceMutex.h"
#include "touchpad/TandrelHID.h"
#include "touchpad/TouchpadDiscovery.h"

namespace vela {

CTandrelHID::~CTandrelHID() {
    // Asked before the members go: some platforms wait for ever in the destruction of a condition
    // variable that a thread still waits on.
    if (readerThread_.joinable() || writerThread_.joinable() || heartbeatThread_.joinable()) {
        std::terminate();
    }
}

HidDeviceFilterList CTandrelHID::GetHidDeviceFilters() {
    return TouchpadDiscovery().GetHidDeviceFilters();
}

HidCapUsagePageList CTandrelHID::GetValueCapUsagePages() {
    return TouchpadDiscovery().GetValueCapUsagePages();
}

HidCapUsagePageList CTandrelHID::GetButtonCapUsagePages() {
    return TouchpadDiscovery().GetButtonCapUsagePages();
}

std::shared_ptr<const CHIDInformation> CTandrelHID::Information() const {
    return std::atomic_load(&information_);
}

std::uint32_t CTandrelHID::Initialize(const std::shared_ptr<const CHIDInformation>& information) {
    constexpr const char* kFunction = "Initialize";
    ILog* const log = GetLogger();
    log->Log(kLogInfo, kFunction,
             "================= CTandrelHID initialize start =================");
    if (information == nullptr) {
        log->Log(kLogWarning, kFunction, "Initialize failed, HID info is null pointer.");
        return kHidFailed;
    }
    if (initialized_) {
        log->Log(kLogInfo, kFunction, "Initialize re-initialize, return true immediately.");
        return kHidOpen;
    }

    // Exclusive: two agents that drive one touchpad's lights would undo each other's reports.
    const HANDLE device = CreateFileW(information->devicePath.c_str(), GENERIC_READ | GENERIC_WRITE,
                                      0, nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    if (device == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        log->Log(kLogError, kFunction, "Initialize failed, CreateFile failed GetLastError(%d).",
                 static_cast<int>(error));
        return error == ERROR_SHARING_VIOLATION ? kHidHeldByOther : kHidFailed;
    }
    std::atomic_store(&information_, information);
    device_ = device;

    SeedButtons(true);
    // Without its events the session could neither wait for a report nor be stopped.
    if (!CreateEvents()) {
        log->Log(kLogError, kFunction, "Initialize failed, CreateEvent failed GetLastError(%d).",
                 static_cast<int>(GetLastError()));
        CloseDevice();
        return kHidFailed;
    }
    stop_ = false;
    {
        const std::lock_guard<std::mutex> lock(lastReportMutex_);
        lastReport_.clear();
    }
    {
        // What an earlier session left unsent was meant for another state, perhaps another device.
        const std::lock_guard<SlimMutex> lock(queueMutex_);
        outputQueue_.clear();
    }
    try {
        StartReportThreads();
    } catch (...) {
        CloseDevice();
        throw;
    }
    initialized_ = true;
    TabletModeDisable_ = false;
    MarkSessionOpen();
    log->Log(kLogInfo, kFunction,
             "================= CTandrelHID initialize succeeded =================");
    return kHidOpen;
}

bool CTandrelHID::Uninitialize() {
    constexpr const char* kFunction = "Uninitialize";
    ILog* const log = GetLogger();
    log->Log(kLogInfo, kFunction, "================= Uninitialize starts. =================");
    if (!initialized_) return false;
    const std::lock_guard<std::mutex> operationLock(operationMutex_);
    // Another thread may have closed the session while this one waited for it.
    if (!initialized_) return false;

    SeedButtons(false);
    Enable(false);
    std::vector<BYTE> lastWords = EmptyOutputReport();
    UpdateLedCtrl(lastWords);
    WriteOutputReportInternal(lastWords, false);

    {
        const std::lock_guard<std::mutex> lock(readMutex_);
        stop_ = true;
        SetEvent(readEvent_);
        SetEvent(writeEvent_);
    }
    {
        const std::lock_guard<SlimMutex> lock(queueMutex_);
        queueCondition_.notify_all();
    }
    if (IsDetachable()) StopHeartbeat();
    {
        const std::lock_guard<std::mutex> lock(lastReportMutex_);
        lastReport_.clear();
    }
    log->Log(kLogInfo, kFunction, "Uninitialize, wait for read input report thread finish.");
    readerThread_.join();
    log->Log(kLogInfo, kFunction, "Uninitialize, wait for write output report thread finish.");
    writerThread_.join();

    {
        const std::lock_guard<std::mutex> lock(buttonMutex_);
        buttons_.Clear();
    }
    buttonPressCallback_ = nullptr;
    statusChangeCallback_ = nullptr;
    initialized_ = false;
    CloseDevice();
    activationState_ = kDeactivated;
    log->Log(kLogInfo, kFunction, "================= Uninitialize succeed. =================");
    return true;
}

bool CTandrelHID::CreateEvents() {
    // New ones for each session, and never closed: an operation that was given up may end, and
    // signal its event, long after its session.
    readEvent_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    if (readEvent_ == nullptr) return false;
    writeEvent_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return writeEvent_ != nullptr;
}

void CTandrelHID::StartReportThreads() {
    readerThread_ = std::thread(&CTandrelHID::ReadInputReportThread, this);
    try {
        writerThread_ = std::thread(&CTandrelHID::WriteOutputReportThread, this);
    } catch (...) {
        {
            const std::lock_guard<std::mutex> lock(readMutex_);
            stop_ = true;
            SetEvent(readEvent_);
        }
        readerThread_.join();
        throw;
    }
}

// The name tells other processes that a session is open. One that exists already does as well, and
// its handle is let go of unclosed: it keeps the name for as long as this process lives.
void CTandrelHID::MarkSessionOpen() {
    if (OpenMutexW(MUTEX_ALL_ACCESS, FALSE, kSessionDeviceMutexName.c_str()) != nullptr) return;
    deviceMutex_ = CreateMutexW(nullptr, FALSE, kSessionDeviceMutexName.c_str());
}

void CTandrelHID::CloseDevice() {
    const HANDLE device = device_.exchange(nullptr);
    if (device != nullptr) CloseHandle(device);
    if (deviceMutex_ != nullptr) CloseHandle(deviceMutex_);
    deviceMutex_ = nullptr;
    std::atomic_store(&information_, std::shared_ptr<const CHIDInformation>());
    // Closing ended whatever was still pending.
    operations_.FreeEnded();
}

void CTandrelHID::SeedButtons(bool present) {
    const std::lock_guard<std::mutex> lock(buttonMutex_);
    for (const std::uint32_t buttonId : kSeededButtonIds) {
        ButtonState& button = buttons_[buttonId];
        button = ButtonState{};
        button.present = present;
    }
}

}  // namespace vela
