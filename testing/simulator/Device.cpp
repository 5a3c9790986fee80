#include "testing/simulator/Device.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "testing/simulator/DeviceObject.h"
#include "testing/simulator/MachineState.h"
#include "testing/simulator/Notifications.h"

namespace simulator {

Device::Device(std::shared_ptr<DeviceObject> object) : object_(std::move(object)) {}

const std::wstring& Device::Path() const { return object_->Description().path; }

const hid::Collection& Device::Collection() const { return *object_->ParsedCollection(); }

void Device::SendInput(const Bytes& report) {
    if (report.empty() || report.size() > object_->caps_.InputReportByteLength) {
        throw std::invalid_argument("an input report that the descriptor does not allow");
    }
    Bytes padded = report;
    padded.resize(object_->caps_.InputReportByteLength);
    const MachineLock lock;
    for (FileObject* file : object_->files_) file->Receive(padded);
}

void Device::FailPendingReads(std::uint32_t error) {
    const MachineLock lock;
    for (FileObject* file : object_->files_) file->FailOldestRead(error);
}

std::size_t Device::PendingReads() const {
    const MachineLock lock;
    return object_->CountPendingReads();
}

bool Device::WaitForPendingReads(std::size_t count) const {
    MachineLock lock;
    return WaitUntil(lock, [&] { return object_->CountPendingReads() >= count; });
}

std::vector<Bytes> Device::Outputs() const {
    const MachineLock lock;
    return object_->outputs_;
}

bool Device::WaitForOutputs(std::size_t count) const {
    MachineLock lock;
    return WaitUntil(lock, [&] { return object_->outputs_.size() >= count; });
}

void Device::ForgetOutputs() {
    const MachineLock lock;
    object_->outputs_.clear();
}

void Device::SetWriteBehaviour(WriteBehaviour behaviour) {
    const MachineLock lock;
    object_->writeBehaviour_ = behaviour;
}

std::size_t Device::HeldWrites() const {
    const MachineLock lock;
    return object_->heldWrites_.size();
}

bool Device::WaitForHeldWrites(std::size_t count) const {
    MachineLock lock;
    return WaitUntil(lock, [&] { return object_->heldWrites_.size() >= count; });
}

void Device::CompleteHeldWrites(std::uint32_t error) {
    const MachineLock lock;
    object_->EndHeldWrites(nullptr, error);
}

void Device::FailNextWriteLate(std::uint32_t error) {
    const MachineLock lock;
    object_->lateErrors_.push_back(error);
}

Bytes Device::Feature(std::uint8_t reportId) const {
    const MachineLock lock;
    const auto found = object_->features_.find(reportId);
    if (found == object_->features_.end())
        throw std::invalid_argument("no feature report of this id");
    return found->second;
}

void Device::SetFeature(const Bytes& report) {
    const MachineLock lock;
    const auto found =
        report.empty() ? object_->features_.end() : object_->features_.find(report[0]);
    if (found == object_->features_.end() || report.size() > found->second.size()) {
        throw std::invalid_argument("a feature report that the descriptor does not allow");
    }
    std::fill(found->second.begin(), found->second.end(), std::uint8_t{0});
    std::copy(report.begin(), report.end(), found->second.begin());
}

std::vector<Bytes> Device::FeatureWrites() const {
    const MachineLock lock;
    return object_->featureWrites_;
}

void Device::ForgetFeatureWrites() {
    const MachineLock lock;
    object_->featureWrites_.clear();
}

void Device::Unplug() {
    {
        const MachineLock lock;
        if (!object_->present_) return;
        object_->Disconnect();
    }
    Notifications::Get().Notify(Notice::Removal, Path());
}

void Device::PlugIn() {
    {
        const MachineLock lock;
        if (object_->present_) return;
        object_->present_ = true;
        auto& devices = State().devices;
        devices.erase(std::remove(devices.begin(), devices.end(), object_), devices.end());
        devices.push_back(object_);
    }
    Notifications::Get().Notify(Notice::Arrival, Path());
}

void Device::HoldElsewhere() {
    const MachineLock lock;
    object_->heldElsewhere_ = true;
}

void Device::ReleaseElsewhere() {
    const MachineLock lock;
    object_->heldElsewhere_ = false;
}

std::size_t Device::OpenHandles() const {
    const MachineLock lock;
    return object_->files_.size();
}

}  // namespace simulator
