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

// Whether two openings exclude each other. One that neither reads nor writes excludes nothing.
bool Conflict(const Access& one, const Access& other);

struct PendingRead {
    IoOperation operation;
    void* buffer = nullptr;
};

// Used under the machine's lock.
class FileObject : public KernelObject {
 public:
    FileObject(std::shared_ptr<DeviceObject> device, Access access, bool overlapped);

    Signal* Waitable() override { return &signal_; }
    void HandleClosed() override;

    DeviceObject& Device() const { return *device_; }
    const Access& Opening() const { return access_; }
    bool IsOverlapped() const { return overlapped_; }
    // False once the device was pulled out, for good: plugging it in again revives no handle.
    bool IsConnected() const { return connected_; }

    // The oldest queued report, if any, completes the read within the call.
    DWORD Read(const IoOperation& operation, void* buffer);
    // On a handle that cannot read, or not any more, nobody will see the report.
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
    // Never are both non-empty.
    std::deque<Bytes> queuedReports_;
    std::deque<PendingRead> pendingReads_;
};

}  // namespace simulator
