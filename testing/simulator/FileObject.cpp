#include "testing/simulator/FileObject.h"

#include <algorithm>
#include <utility>

#include "testing/simulator/DeviceObject.h"

namespace simulator {
namespace {

// The class driver's default depth.
constexpr std::size_t kQueuedReports = 32;

bool Excludes(const Access& held, const Access& requested) {
    return (requested.Reads() && (held.share & FILE_SHARE_READ) == 0) ||
           (requested.Writes() && (held.share & FILE_SHARE_WRITE) == 0);
}

DWORD Deliver(const Bytes& report, const IoOperation& operation, void* buffer) {
    std::copy(report.begin(), report.end(), static_cast<std::uint8_t*>(buffer));
    operation.Complete(ERROR_SUCCESS, static_cast<DWORD>(report.size()));
    return ERROR_SUCCESS;
}

}  // namespace

bool Conflict(const Access& one, const Access& other) {
    const auto touchesData = [](const Access& access) { return access.Reads() || access.Writes(); };
    if (!touchesData(one) || !touchesData(other)) return false;
    return Excludes(one, other) || Excludes(other, one);
}

FileObject::FileObject(std::shared_ptr<DeviceObject> device, Access access, bool overlapped)
    : device_(std::move(device)), access_(access), overlapped_(overlapped) {}

void FileObject::HandleClosed() {
    FailReads(ERROR_OPERATION_ABORTED);
    device_->FileClosed(*this);
}

DWORD FileObject::Read(const IoOperation& operation, void* buffer) {
    if (queuedReports_.empty()) {
        pendingReads_.push_back({operation, buffer});
        return ERROR_IO_PENDING;
    }
    const Bytes report = std::move(queuedReports_.front());
    queuedReports_.pop_front();
    return Deliver(report, operation, buffer);
}

void FileObject::Receive(const Bytes& report) {
    if (pendingReads_.empty()) {
        if (queuedReports_.size() == kQueuedReports) queuedReports_.pop_front();
        queuedReports_.push_back(report);
        return;
    }
    const PendingRead read = std::move(pendingReads_.front());
    pendingReads_.pop_front();
    Deliver(report, read.operation, read.buffer);
}

bool FileObject::FailOldestRead(DWORD error) {
    if (pendingReads_.empty()) return false;
    const PendingRead read = std::move(pendingReads_.front());
    pendingReads_.pop_front();
    read.operation.Complete(error, 0);
    return true;
}

void FileObject::FailReads(DWORD error) {
    while (FailOldestRead(error)) {
    }
}

void FileObject::Disconnect() {
    connected_ = false;
    FailReads(ERROR_DEVICE_NOT_CONNECTED);
}

}  // namespace simulator
