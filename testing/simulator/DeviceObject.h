// A device of the machine as platform calls use it, which hold the machine's lock. Tests use it
// through a Device. A DWORD result is a last error.
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

class DeviceObject : public std::enable_shared_from_this<DeviceObject> {
 public:
    // `description.path` is already set.
    DeviceObject(DeviceDescription description, std::shared_ptr<const hid::Collection> collection);

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

    // Does the work of Unplug; Machine::Reset calls it as well.
    void Disconnect();

 private:
    friend class Device;

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
