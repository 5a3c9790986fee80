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

class DeviceObject;
namespace hid {
class Collection;
}

struct DeviceDescription {
    Bytes reportDescriptor;
    std::uint16_t vendorId = 0;
    std::uint16_t productId = 0;
    std::uint16_t versionNumber = 0;
    std::wstring productString;
    // When empty, a path in the platform's form is built from the ids. A descriptor with several
    // top-level collections gets "&col01", "&col02", ... in its paths.
    std::wstring path;
};

enum class WriteBehaviour {
    Pend,       // returns ERROR_IO_PENDING and completes at once, as a HID write usually does
    Immediate,  // completes within the call, which then returns TRUE
    Hold,       // stays pending until CompleteHeldWrites, Unplug or the closing of the handle
};

class Device {
 public:
    explicit Device(std::shared_ptr<DeviceObject> object);

    const std::wstring& Path() const;
    const hid::Collection& Collection() const;

    // Input: the report (its id in byte 0, or without ids a leading 0) goes into the queue of every
    // handle opened with read access (32 reports deep, the oldest is dropped) and completes the
    // oldest pending read of each.
    void SendInput(const Bytes& report);
    // Completes the oldest pending read of every handle with this error.
    void FailPendingReads(std::uint32_t error);
    std::size_t PendingReads() const;
    // Returns true once `count` reads are pending at the same time.
    bool WaitForPendingReads(std::size_t count = 1) const;

    // Output: every report that a write delivered, oldest first, as the device received it.
    std::vector<Bytes> Outputs() const;
    // Returns true once the device has received `count` reports in all.
    bool WaitForOutputs(std::size_t count) const;
    void ForgetOutputs();
    void SetWriteBehaviour(WriteBehaviour behaviour);
    std::size_t HeldWrites() const;
    bool WaitForHeldWrites(std::size_t count = 1) const;
    // Ends every held write: delivered when `error` is 0, else failed with it. Writes the
    // OVERLAPPED record and signals its event, even if the writer no longer waits.
    void CompleteHeldWrites(std::uint32_t error = 0);
    // The next write is accepted as pending and then completes with this error.
    void FailNextWriteLate(std::uint32_t error);

    // Feature reports by report id, each the full report with its id byte. Zero-filled at first.
    Bytes Feature(std::uint8_t reportId) const;
    void SetFeature(const Bytes& report);
    // Reports set through HidD_SetFeature, oldest first.
    std::vector<Bytes> FeatureWrites() const;
    void ForgetFeatureWrites();

    // Unplugs the device: pending I/O fails with 1167 (ERROR_DEVICE_NOT_CONNECTED), as does new I/O
    // on open handles; the interface leaves the enumeration, and opening its path fails with 2.
    void Unplug();
    // Plugs it in again, at the end of the enumeration and with the same path. Old handles stay
    // invalid.
    void PlugIn();

    // Simulates another process that has the device open exclusively (share mode 0).
    void HoldElsewhere();
    void ReleaseElsewhere();
    // Handles of this process that are open on the device now.
    std::size_t OpenHandles() const;

 private:
    const std::shared_ptr<DeviceObject> object_;
};

}  // namespace simulator
