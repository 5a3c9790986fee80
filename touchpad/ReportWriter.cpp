#include "touchpad/ReportWriter.h"

#include <exception>
#include <optional>
#include <utility>

#include "log/ILog.h"
#include "platform/Lock.h"

namespace vela {
namespace {

constexpr DWORD kWriteTimeLimitMs = 30000;

constexpr const char* kFunction = "WriteOutputReportInternal";

}  // namespace

ReportWriter::~ReportWriter() {
    if (thread_.joinable()) std::terminate();
}

bool ReportWriter::Prepare() {
    writeEvent_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (writeEvent_ == nullptr) return false;
    ForgetLastReport();
    queue_.Restart();
    monitor_.Restart();
    return true;
}

void ReportWriter::Start(std::shared_ptr<OpenTouchpad> touchpad) {
    thread_ = std::thread(&ReportWriter::WriteOutputReportThread, this, std::move(touchpad));
}

void ReportWriter::Stop() {
    monitor_.Stop();
    SetEvent(writeEvent_);
    queue_.Stop();
}

void ReportWriter::WriteOutputReportThread(const std::shared_ptr<OpenTouchpad>& touchpad) {
    while (const std::optional<OutputItem> item = queue_.Take()) {
        WriteOutputReportInternal(*touchpad, item->report, item->force);
    }
}

bool ReportWriter::Enqueue(OutputQueue::Ticket ticket, std::vector<BYTE> report, bool force) {
    queue_.Put(std::move(ticket), {std::move(report), force});
    return true;
}

bool ReportWriter::WriteOutputReportInternal(OpenTouchpad& touchpad,
                                             const std::vector<BYTE>& report, bool force,
                                             IssueOrder order) {
    if (!touchpad.handle.IsOpen()) return false;
    bool connected = false;
    if (device_.GetDeviceConnectState(connected) && !connected) return false;
    if (!force && IsLastReport(report)) return true;
    if (!WriteAndWait(touchpad, report, order)) return false;
    if (!force) {
        const Lock lock(lastReportMutex_);
        lastReport_ = report;
    }
    return true;
}

bool ReportWriter::IsLastReport(const std::vector<BYTE>& report) {
    const Lock lock(lastReportMutex_);
    return report == lastReport_;
}

std::vector<BYTE> ReportWriter::LastReport() {
    const Lock lock(lastReportMutex_);
    return lastReport_;
}

void ReportWriter::ForgetLastReport() {
    const Lock lock(lastReportMutex_);
    lastReport_.clear();
}

bool ReportWriter::WriteAndWait(OpenTouchpad& touchpad, const std::vector<BYTE>& report,
                                IssueOrder order) {
    const OverlappedOperations::Pointer write = device_.Operations().Make(report);
    DWORD error = ERROR_SUCCESS;
    switch (Issue(touchpad, *write, order, error)) {
        case IssueResult::Refused:
            return false;
        case IssueResult::Completed:
            return true;
        case IssueResult::Pending:
            if (WaitForWrite(touchpad, *write, error)) return true;
            break;
        case IssueResult::Failed:
            break;
    }
    GetLogger()->Log(kLogError, kFunction, "Write File failed with last error (%d)",
                     static_cast<int>(error));
    return false;
}

ReportWriter::IssueResult ReportWriter::Issue(OpenTouchpad& touchpad, OverlappedOperation& write,
                                              IssueOrder order, DWORD& error) {
    if (!monitor_.Enter(order)) return IssueResult::Refused;
    write.Prepare(writeEvent_);
    const IssueResult result = touchpad.handle.Use([&](HANDLE device) {
        if (device == nullptr) return IssueResult::Refused;
        if (WriteFile(device, write.bytes.data(), static_cast<DWORD>(write.bytes.size()), nullptr,
                      &write.overlapped)) {
            return IssueResult::Completed;
        }
        error = GetLastError();
        return error == ERROR_IO_PENDING ? IssueResult::Pending : IssueResult::Failed;
    });
    const bool accepted = result == IssueResult::Completed || result == IssueResult::Pending;
    write.Issued(accepted);
    monitor_.Leave(write.bytes, accepted);
    return result;
}

// A write that runs into its time limit is left pending: it may still arrive, and the session
// cannot distinguish a late write from a lost one. On failure `error` is the last error.
bool ReportWriter::WaitForWrite(OpenTouchpad& touchpad, OverlappedOperation& write, DWORD& error) {
    const DWORD waited = WaitForSingleObject(write.overlapped.hEvent, kWriteTimeLimitMs);
    error = GetLastError();
    if (waited == WAIT_OBJECT_0) return GetWriteResult(touchpad, write, error);
    if (waited == WAIT_TIMEOUT) {
        GetLogger()->Log(kLogError, kFunction, "WaitForSingleObject timeout");
        monitor_.NoteTimeout();
    } else {
        GetLogger()->Log(kLogError, kFunction, "WaitForSingleObject dwRet = %d, the last error(%d)",
                         static_cast<int>(waited), static_cast<int>(error));
    }
    return false;
}

bool ReportWriter::GetWriteResult(OpenTouchpad& touchpad, OverlappedOperation& write,
                                  DWORD& error) {
    const bool done = touchpad.handle.Use([&](HANDLE device) {
        DWORD transferred = 0;
        if (GetOverlappedResult(device, &write.overlapped, &transferred, TRUE)) return true;
        error = GetLastError();
        return false;
    });
    if (done) return true;
    GetLogger()->Log(kLogError, kFunction, "GetOverlappedResult failed, the last error (%d)",
                     static_cast<int>(error));
    return false;
}

}  // namespace vela
