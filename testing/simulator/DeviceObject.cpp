#include "testing/simulator/DeviceObject.h"

#include <algorithm>
#include <utility>

#include "testing/simulator/MachineState.h"
#include "testing/simulator/ReportRules.h"

namespace simulator {
namespace {

constexpr Access kExclusive{GENERIC_READ | GENERIC_WRITE, 0};

}  // namespace

DeviceObject::DeviceObject(DeviceDescription description,
                           std::shared_ptr<const hid::Collection> collection)
    : description_(std::move(description)),
      collection_(std::move(collection)),
      caps_(hid::CapsOf(*collection_)) {
    for (const std::uint8_t reportId : hid::ReportIds(*collection_, HidP_Feature)) {
        Bytes report(*hid::ReportLength(*collection_, HidP_Feature, reportId));
        report[0] = reportId;
        features_.emplace(reportId, std::move(report));
    }
}

DWORD DeviceObject::Open(Access access, bool overlapped, std::shared_ptr<FileObject>& file) {
    if (heldElsewhere_ && Conflict(kExclusive, access)) return ERROR_SHARING_VIOLATION;
    for (const FileObject* held : files_) {
        // A handle opened before the device was unplugged excludes no other.
        if (held->IsConnected() && Conflict(held->Opening(), access)) {
            return ERROR_SHARING_VIOLATION;
        }
    }
    file = std::make_shared<FileObject>(shared_from_this(), access, overlapped);
    files_.push_back(file.get());
    return ERROR_SUCCESS;
}

void DeviceObject::FileClosed(FileObject& file) {
    EndHeldWrites(&file, ERROR_OPERATION_ABORTED);
    files_.erase(std::remove(files_.begin(), files_.end(), &file), files_.end());
}

DWORD DeviceObject::Read(FileObject& file, const IoOperation& operation, void* buffer,
                         DWORD length) {
    if (caps_.InputReportByteLength == 0) return ERROR_INVALID_PARAMETER;
    if (length < caps_.InputReportByteLength) return ERROR_INVALID_USER_BUFFER;
    if (buffer == nullptr) return ERROR_NOACCESS;
    const DWORD error = file.Read(operation, buffer);
    State().changed.notify_all();
    return error;
}

DWORD DeviceObject::Write(FileObject& file, const IoOperation& operation, const void* bytes,
                          DWORD length) {
    std::size_t reportLength = 0;
    if (const DWORD error = CheckReport(*collection_, HidP_Output, bytes, length, reportLength)) {
        return error;
    }
    // An output report, unlike a feature report, is not cut to its own length: writers pad it to
    // the longest, and the device receives the padding. Without report ids, byte 0 is not sent.
    const auto* const begin = static_cast<const std::uint8_t*>(bytes);
    const Bytes report(begin + (hid::UsesReportIds(*collection_) ? 0 : 1),
                       begin + std::min<std::size_t>(length, caps_.OutputReportByteLength));

    if (!lateErrors_.empty()) {
        operation.Complete(lateErrors_.front(), 0);
        lateErrors_.pop_front();
        return ERROR_IO_PENDING;
    }
    if (writeBehaviour_ == WriteBehaviour::Hold) {
        heldWrites_.push_back({&file, operation, report, length});
        State().changed.notify_all();
        return ERROR_IO_PENDING;
    }
    Deliver(report);
    operation.Complete(ERROR_SUCCESS, length);
    return writeBehaviour_ == WriteBehaviour::Pend ? ERROR_IO_PENDING : ERROR_SUCCESS;
}

DWORD DeviceObject::ReadFeature(void* buffer, DWORD length) const {
    std::size_t reportLength = 0;
    if (const DWORD error = CheckReport(*collection_, HidP_Feature, buffer, length, reportLength)) {
        return error;
    }
    auto* const bytes = static_cast<std::uint8_t*>(buffer);
    const Bytes& report = features_.at(bytes[0]);
    std::copy(report.begin(), report.end(), bytes);
    return ERROR_SUCCESS;
}

DWORD DeviceObject::WriteFeature(const void* bytes, DWORD length) {
    std::size_t reportLength = 0;
    if (const DWORD error = CheckReport(*collection_, HidP_Feature, bytes, length, reportLength)) {
        return error;
    }
    const auto* const begin = static_cast<const std::uint8_t*>(bytes);
    const Bytes report(begin, begin + reportLength);
    features_[report[0]] = report;
    featureWrites_.push_back(report);
    return ERROR_SUCCESS;
}

void DeviceObject::Disconnect() {
    present_ = false;
    // Unplugging closes the other process's access too.
    heldElsewhere_ = false;
    EndHeldWrites(nullptr, ERROR_DEVICE_NOT_CONNECTED);
    for (FileObject* file : files_) file->Disconnect();
}

void DeviceObject::Deliver(const Bytes& report) {
    outputs_.push_back(report);
    State().changed.notify_all();
}

void DeviceObject::EndHeldWrites(const FileObject* file, DWORD error) {
    std::deque<HeldWrite> kept;
    for (HeldWrite& write : std::exchange(heldWrites_, {})) {
        if (file != nullptr && write.file != file) {
            kept.push_back(std::move(write));
            continue;
        }
        if (error == ERROR_SUCCESS) Deliver(write.report);
        write.operation.Complete(error, error == ERROR_SUCCESS ? write.length : 0);
    }
    heldWrites_ = std::move(kept);
}

std::size_t DeviceObject::CountPendingReads() const {
    std::size_t count = 0;
    for (const FileObject* file : files_) count += file->PendingReads();
    return count;
}

}  // namespace simulator
