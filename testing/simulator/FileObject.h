// An open device file: what one handle of CreateFileW refers to.
#pragma once

#include <deque>
#include <memory>

#include <windows.h>

#include "testing/simulator/Device.h"
#include "testing/simulator/IoOperation.h"
#include "testing/simulator/KernelObject.h"

namespace simulator {

class DeviceObject;

struct Access {
    DWORD rights;
    DWORD share;

    bool Reads() const { return (rights & (GENERIC_READ | GENERIC_ALL | FILE_READ_DATA)) != 0; }
    bool Writes() const { return (rights & (GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_DATA)) != 0; }
};

// Returns whether two openings exclude each other. One that neither reads nor writes excludes none.
bool Conflict(const Access& one, const Access& other);

struct PendingRead {
    IoOperation operation;
    void* buffer = nullptr;
};

// Callers hold the machine's lock.
class FileObject : public KernelObject {
 public:
    FileObject(std::shared_ptr<DeviceObject> device, Access access, bool overlapped);

    Signal* Waitable() override { return &signal_; }
    void HandleClosed() override;

    DeviceObject& Device() const { return *device_; }
    const Access& Opening() const { return access_; }
    bool IsOverlapped() const { return overlapped_; }
    // Returns false after the device was unplugged; plugging it in again does not revive the
    // handle.
    bool IsConnected() const { return connected_; }

    // The oldest queued report, if any, completes the read within the call.
    DWORD Read(const IoOperation& operation, void* buffer);
    // Completes the oldest pending read or queues the report. Handles that cannot read, or no
    // longer can, queue reports that nobody sees.
    void Receive(const Bytes& report);
    bool FailOldestRead(DWORD error);
    void FailReads(DWORD error);
    std::size_t PendingReads() const { return pendingReads_.size(); }
    void Disconnect();

 private:
    const std::shared_ptr<DeviceObject> device_;
    const Access access_;
    const bool overlapped_;
    bool connected_ = true;
    Signal signal_{Signal::Reset::Manual, false};
    // At most one of the two is non-empty.
    std::deque<Bytes> queuedReports_;
    std::deque<PendingRead> pendingReads_;
};

}  // namespace simulator
