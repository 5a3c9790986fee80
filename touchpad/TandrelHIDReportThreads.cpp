// The reader and writer threads, and the way of a report to the device.
#include <windows.h>

#include <algorithm>

#include "log/FunctionName.h"
#include "log/ILog.h"
#include "touchpad/TandrelHID.h"

namespace vela {
namespace {

constexpr DWORD kWriteTimeLimitMs = 30000;

const FunctionName kReader("ReadInputReportThread");

}  // namespace

void CTandrelHID::ReadInputReportThread() {
    const std::shared_ptr<const CHIDInformation> information = Information();
    const std::size_t length = information->caps.InputReportByteLength;
    if (length == 0) return;
    OverlappedOperations::Pointer read = operations_.Make(std::vector<BYTE>(length));
    std::vector<USAGE> usages(HidP_MaxUsageListLength(HidP_Input, 0, information->preparsedData));

    while (!stop_) {
        // A wait that failed may have left the read behind with the kernel.
        if (read->IsWithKernel()) read = operations_.Make(std::vector<BYTE>(length));
        std::fill(read->bytes.begin(), read->bytes.end(), BYTE{0});
        if (!ReadInputReport(*read)) continue;
        GetLogger()->Log(kLogInfo, kReader, "HandleInputReport reportID 0x%x", read->bytes[0]);
        HandleInputReport(read->bytes, usages);
    }
}

bool CTandrelHID::ReadInputReport(OverlappedOperation& read) {
    {
        const std::lock_guard<std::mutex> lock(readMutex_);
        if (stop_) return false;
        read.Prepare(readEvent_);
        const BOOL completed =
            ReadFile(device_, read.bytes.data(), static_cast<DWORD>(read.bytes.size()), nullptr,
                     &read.overlapped);
        read.Issued(completed || GetLastError() == ERROR_IO_PENDING);
        if (completed) return true;
    }
    // Whatever the error: on a device that is gone every read fails at once, and the thread is to
    // rest until Uninitialize signals the event.
    WaitForSingleObject(readEvent_, INFINITE);
    if (stop_) return false;
    DWORD transferred = 0;
    return GetOverlappedResult(device_, &read.overlapped, &transferred, TRUE) != FALSE;
}

void CTandrelHID::WriteOutputReportThread() {
    while (!stop_) {
        const std::lock_guard<SlimMutex> lock(queueMutex_);
        queueCondition_.wait(queueMutex_, [this] { return !outputQueue_.empty() || stop_; });
        // Written with the queue locked: whoever queues a report waits for the write in flight, so
        // that a slow device holds its host back instead of piling reports up.
        while (!stop_ && !outputQueue_.empty()) {
            const OutputItem item = std::move(outputQueue_.front());
            outputQueue_.pop_front();
            WriteOutputReportInternal(item.report, item.force);
        }
    }
}

bool CTandrelHID::EnqueueOutputReport(const Turnstile::Turn& turn, std::vector<BYTE> report,
                                      bool force) {
    turn.Await();
    const std::lock_guard<SlimMutex> lock(queueMutex_);
    outputQueue_.push_back({std::move(report), force});
    queueCondition_.notify_all();
    return true;
}

bool CTandrelHID::WriteOutputReportInternal(const std::vector<BYTE>& report, bool force) {
    if (device_ == nullptr) return false;
    bool connected = false;
    if (GetDeviceConnectState(connected) && !connected) return false;
    if (!force && IsLastReport(report)) return true;
    if (!WriteAndWait(report)) return false;
    if (!force) {
        const std::lock_guard<std::mutex> lock(lastReportMutex_);
        lastReport_ = report;
    }
    return true;
}

bool CTandrelHID::IsLastReport(const std::vector<BYTE>& report) {
    const std::lock_guard<std::mutex> lock(lastReportMutex_);
    return report == lastReport_;
}

std::vector<BYTE> CTandrelHID::LastReport() {
    const std::lock_guard<std::mutex> lock(lastReportMutex_);
    return lastReport_;
}

bool CTandrelHID::WriteAndWait(const std::vector<BYTE>& report) {
    const OverlappedOperations::Pointer write = operations_.Make(report);
    const HANDLE device = device_;
    write->Prepare(writeEvent_);
    if (WriteFile(device, write->bytes.data(), static_cast<DWORD>(write->bytes.size()), nullptr,
                  &write->overlapped)) {
        write->Issued(true);
        return true;
    }
    DWORD error = GetLastError();
    write->Issued(error == ERROR_IO_PENDING);
    if (error == ERROR_IO_PENDING && WaitForWrite(*write, device, error)) return true;
    GetLogger()->Log(kLogError, "WriteOutputReportInternal",
                     "Write File failed with last error (%d)", static_cast<int>(error));
    return false;
}

// A write that runs into its time limit is left to the device: it may still arrive, and nothing the
// session could do would tell a late write from a lost one. On failure `error` is the last error.
bool CTandrelHID::WaitForWrite(OverlappedOperation& write, HANDLE device, DWORD& error) {
    constexpr const char* kFunction = "WriteOutputReportInternal";
    const DWORD waited = WaitForSingleObject(write.overlapped.hEvent, kWriteTimeLimitMs);
    if (waited == WAIT_OBJECT_0) {
        DWORD transferred = 0;
        if (GetOverlappedResult(device, &write.overlapped, &transferred, TRUE)) return true;
        error = GetLastError();
        GetLogger()->Log(kLogError, kFunction, "GetOverlappedResult failed, the last error (%d)",
                         static_cast<int>(error));
        return false;
    }
    error = GetLastError();
    if (waited == WAIT_TIMEOUT) {
        GetLogger()->Log(kLogError, kFunction, "WaitForSingleObject timeout");
    } else {
        GetLogger()->Log(kLogError, kFunction, "WaitForSingleObject dwRet = %d, the last error(%d)",
                         static_cast<int>(waited), static_cast<int>(error));
    }
    return false;
}

}  // namespace vela
