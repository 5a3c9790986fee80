// The test's side of a device.
#include "testing/simulator/Device.h"

#include <algorithm>
#include <stdexcept>

#include "testing/simulator/DeviceObject.h"
#include "testing/simulator/MachineState.h"

namespace simulator {

void DeviceObject::SendInput(const Bytes& report) {
    if (report.empty() || report.size() > caps_.InputReportByteLength) {
        throw std::invalid_argument("an input report that the descriptor does not allow");
    }
    Bytes padded = report;
    padded.resize(caps_.InputReportByteLength);
    const MachineLock lock;
    for (FileObject* file : files_) file->Receive(padded);
}

void DeviceObject::FailPendingReads(std::uint32_t error) {
    const MachineLock lock;
    for (FileObject* file : files_) file->FailOldestRead(error);
}

std::size_t DeviceObject::PendingReads() const {
    const MachineLock lock;
    return CountPendingReads();
}

bool DeviceObject::WaitForPendingReads(std::size_t count) const {
    MachineLock lock;
    return WaitUntil(lock, [&] { return CountPendingReads() >= count; });
}

std::vector<Bytes> DeviceObject::Outputs() const {
    const MachineLock lock;
    return outputs_;
}

bool DeviceObject::WaitForOutputs(std::size_t count) const {
    MachineLock lock;
    return WaitUntil(lock, [&] { return outputs_.size() >= count; });
}

void DeviceObject::ForgetOutputs() {
    const MachineLock lock;
    outputs_.clear();
}

void DeviceObject::SetWriteBehaviour(WriteBehaviour behaviour) {
    const MachineLock lock;
    writeBehaviour_ = behaviour;
}

std::size_t DeviceObject::HeldWrites() const {
    const MachineLock lock;
    return heldWrites_.size();
}

bool DeviceObject::WaitForHeldWrites(std::size_t count) const {
    MachineLock lock;
    return WaitUntil(lock, [&] { return heldWrites_.size() >= count; });
}

void DeviceObject::CompleteHeldWrites(std::uint32_t error) {
    const MachineLock lock;
    EndHeldWrites(nullptr, error);
}

void DeviceObject::FailNextWriteLate(std::uint32_t error) {
    const MachineLock lock;
    lateErrors_.push_back(error);
}

Bytes DeviceObject::Feature(std::uint8_t reportId) const {
    const MachineLock lock;
    const auto found = features_.find(reportId);
    if (found == features_.end()) throw std::invalid_argument("no feature report of this id");
    return found->second;
}

void DeviceObject::SetFeature(const Bytes& report) {
    const MachineLock lock;
    const auto found = report.empty() ? features_.end() : features_.find(report[0]);
    if (found == features_.end() || report.size() > found->second.size()) {
        throw std::invalid_argument("a feature report that the descriptor does not allow");
    }
    std::fill(found->second.begin(), found->second.end(), std::uint8_t{0});
    std::copy(report.begin(), report.end(), found->second.begin());
}

std::vector<Bytes> DeviceObject::FeatureWrites() const {
    const MachineLock lock;
    return featureWrites_;
}

void DeviceObject::ForgetFeatureWrites() {
    const MachineLock lock;
    featureWrites_.clear();
}

void DeviceObject::Unplug() {
    const MachineLock lock;
    Disconnect();
}

void DeviceObject::PlugIn() {
    const MachineLock lock;
    if (present_) return;
    present_ = true;
    auto& devices = State().devices;
    const auto self = shared_from_this();
    devices.erase(std::remove(devices.begin(), devices.end(), self), devices.end());
    devices.push_back(self);
}

void DeviceObject::HoldElsewhere() {
    const MachineLock lock;
    heldElsewhere_ = true;
}

void DeviceObject::ReleaseElsewhere() {
    const MachineLock lock;
    heldElsewhere_ = false;
}

std::size_t DeviceObject::OpenHandles() const {
    const MachineLock lock;
    return files_.size();
}

}  // namespace simulator
