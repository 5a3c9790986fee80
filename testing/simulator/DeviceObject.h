// A device of the machine: tests use it as a Device, platform calls as a DeviceObject.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>
#include <hidpi.h>

#include "testing/simulator/Device.h"
#include "testing/simulator/FileObject.h"
#include "testing/simulator/IoOperation.h"
#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator {

class DeviceObject final : public Device, public std::enable_shared_from_this<DeviceObject> {
 public:
    // `description.path` is already set.
    DeviceObject(DeviceDescription description, std::shared_ptr<const hid::Collection> collection);

    // --- for tests: these take the machine's lock ------------------------------------------------
    const std::wstring& Path() const override { return description_.path; }
    const hid::Collection& Collection() const override { return *collection_; }

    void SendInput(const Bytes& report) override;
    void FailPendingReads(std::uint32_t error) override;
    std::size_t PendingReads() const override;
    bool WaitForPendingReads(std::size_t count) const override;

    std::vector<Bytes> Outputs() const override;
    bool WaitForOutputs(std::size_t count) const override;
    void ForgetOutputs() override;
    void SetWriteBehaviour(WriteBehaviour behaviour) override;
    std::size_t HeldWrites() const override;
    bool WaitForHeldWrites(std::size_t count) const override;
    void CompleteHeldWrites(std::uint32_t error) override;
    void FailNextWriteLate(std::uint32_t error) override;

    Bytes Feature(std::uint8_t reportId) const override;
    void SetFeature(const Bytes& report) override;
    std::vector<Bytes> FeatureWrites() const override;
    void ForgetFeatureWrites() override;

    void Unplug() override;
    void PlugIn() override;
    void HoldElsewhere() override;
    void ReleaseElsewhere() override;
    std::size_t OpenHandles() const override;

    // --- for platform calls, which hold the machine's lock; a DWORD result is a last error -------
    const DeviceDescription& Description() const { return description_; }
    const std::shared_ptr<const hid::Collection>& ParsedCollection() const { return collection_; }
    bool IsPresent() const { return present_; }

    DWORD Open(Access access, bool overlapped, std::shared_ptr<FileObject>& file);
    void FileClosed(FileObject& file);
    // These return ERROR_IO_PENDING when the OVERLAPPED record receives the result, now or later.
    DWORD Read(FileObject& file, const IoOperation& operation, void* buffer, DWORD length);
    DWORD Write(FileObject& file, const IoOperation& operation, const void* bytes, DWORD length);
    DWORD ReadFeature(void* buffer, DWORD length) const;
    DWORD WriteFeature(const void* bytes, DWORD length);

    // Does the work of Unplug; Machine::Reset calls it as well. Callers hold the lock.
    void Disconnect();

 private:
    struct HeldWrite {
        const FileObject* file;
        IoOperation operation;
        Bytes report;
        DWORD length;  // as passed by the writer; reported as the bytes written
    };

    void Deliver(const Bytes& report);
    // Ends the held writes of one file, or all of them when `file` is null.
    void EndHeldWrites(const FileObject* file, DWORD error);
    std::size_t CountPendingReads() const;

    const DeviceDescription description_;
    const std::shared_ptr<const hid::Collection> collection_;
    const HIDP_CAPS caps_;
    bool present_ = true;
    bool heldElsewhere_ = false;
    std::vector<FileObject*> files_;  // FileClosed removes them
    std::vector<Bytes> outputs_;
    WriteBehaviour writeBehaviour_ = WriteBehaviour::Pend;
    std::deque<HeldWrite> heldWrites_;
    std::deque<DWORD> lateErrors_;
    std::map<std::uint8_t, Bytes> features_;
    std::vector<Bytes> featureWrites_;
};

}  // namespace simulator
