// A HID device interface of the simulated machine: one top-level collection with its own path.
//
// Every operation may be called from any thread.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace simulator {

using Bytes = std::vector<std::uint8_t>;

namespace hid {
class Collection;
}

struct DeviceDescription {
    Bytes reportDescriptor;
    std::uint16_t vendorId = 0;
    std::uint16_t productId = 0;
    std::uint16_t versionNumber = 0;
    std::wstring productString;
    // Empty: a path in the platform's form is made from the ids. A descriptor with several
    // top-level collections gets "&col01", "&col02", ... in its paths.
    std::wstring path;
};

enum class WriteBehaviour {
    Pend,       // answers ERROR_IO_PENDING and completes right away, as a HID write usually does
    Immediate,  // completes within the call, which then returns TRUE
    Hold,       // stays pending until CompleteHeldWrites, Unplug or the closing of the handle
};

class Device {
 public:
    virtual ~Device() = default;

    virtual const std::wstring& Path() const = 0;
    virtual const hid::Collection& Collection() const = 0;

    // Input: the report (its id in byte 0, or without ids a leading 0) goes into the queue of every
    // handle opened with read access (32 reports deep, the oldest is dropped) and completes the
    // oldest pending read of each.
    virtual void SendInput(const Bytes& report) = 0;
    // Completes the oldest pending read of every handle with this error.
    virtual void FailPendingReads(std::uint32_t error) = 0;
    virtual std::size_t PendingReads() const = 0;
    // True once `count` reads are pending at the same time.
    virtual bool WaitForPendingReads(std::size_t count = 1) const = 0;

    // Output: every report that a write delivered, oldest first, as the device received it.
    virtual std::vector<Bytes> Outputs() const = 0;
    // True once the device has received `count` reports in all.
    virtual bool WaitForOutputs(std::size_t count) const = 0;
    virtual void ForgetOutputs() = 0;
    virtual void SetWriteBehaviour(WriteBehaviour behaviour) = 0;
    virtual std::size_t HeldWrites() const = 0;
    virtual bool WaitForHeldWrites(std::size_t count = 1) const = 0;
    // Ends every held write: delivered when `error` is 0, else failed with it. Writes the
    // OVERLAPPED record and signals its event, however long ago the writer gave up.
    virtual void CompleteHeldWrites(std::uint32_t error = 0) = 0;
    // The next write is accepted as pending and then completes with this error.
    virtual void FailNextWriteLate(std::uint32_t error) = 0;

    // Feature reports by report id, each the full report with its id byte. Zero-filled at first.
    virtual Bytes Feature(std::uint8_t reportId) const = 0;
    virtual void SetFeature(const Bytes& report) = 0;
    // Reports set through HidD_SetFeature, oldest first.
    virtual std::vector<Bytes> FeatureWrites() const = 0;
    virtual void ForgetFeatureWrites() = 0;

    // Pulls the plug: pending I/O fails with 1167 (ERROR_DEVICE_NOT_CONNECTED), as does new I/O on
    // open handles; the interface leaves the enumeration, and opening its path fails with 2.
    virtual void Unplug() = 0;
    // Puts it back at the end of the enumeration, with the same path. Old handles stay dead.
    virtual void PlugIn() = 0;

    // Another process holds the device for itself (share mode 0).
    virtual void HoldElsewhere() = 0;
    virtual void ReleaseElsewhere() = 0;
    // Handles of this process that are open on the device now.
    virtual std::size_t OpenHandles() const = 0;
};

}  // namespace simulator
