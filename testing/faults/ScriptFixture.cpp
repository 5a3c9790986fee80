#include "testing/faults/ScriptFixture.h"

#include <algorithm>

#include "testing/faults/HostLog.h"
#include "testing/faults/IdleThreads.h"
#include "testing/kit/HostCallbacks.h"
#include "testing/virtual-touchpad/descriptor/HapticLayout.h"

namespace faults {
namespace {

std::shared_ptr<simulator::Device> PlugHapticTouchpad() {
    const virtual_touchpad::HapticLayout layout;
    simulator::DeviceDescription description;
    description.reportDescriptor = virtual_touchpad::BuildReportDescriptor(layout);
    description.vendorId = layout.vendorId;
    description.productId = layout.productId;
    description.versionNumber = layout.versionNumber;
    description.productString = layout.productString;
    auto device = simulator::Machine::Get().Plug(description);
    device->SetFeature(virtual_touchpad::HapticsReport({0xA, 42, 0x15, 0xC3}));
    return device;
}

}  // namespace

ScriptFixture::ScriptFixture(const virtual_touchpad::TouchpadLayout& layout,
                             Script::Subject subject, const std::filesystem::path& folder,
                             CallWatch::Chooser chooser)
    : logDirectory_(MakeLogDirectory(folder)) {
    OverfillLog(logDirectory_);
    simulator::Machine& machine = simulator::Machine::Get();
    machine.Reset();
    kit::HostCallbacks::Reset();
    oldPreparsedData_ = machine.PreparsedDataInUse();
    oldGlobalMemory_ = machine.GlobalMemoryInUse();
    library_.emplace();
    library_->PutVelaIni("[0488]\r\n");
    if (subject == Script::Subject::Touchpad) hapticTouchpad_ = PlugHapticTouchpad();
    touchpad_ = machine.Plug(kit::Describe(layout));
    if (subject == Script::Subject::HapticTouchpad) hapticTouchpad_ = PlugHapticTouchpad();
    watch_ = std::make_unique<CallWatch>(std::move(chooser));
}

void ScriptFixture::Do(const Step& step) {
    watch_->Begin(step.name);
    const std::int64_t result = step.run(*this);
    results_.push_back(step.name + " -> " + std::to_string(result));
}

void ScriptFixture::Play(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        Do(step);
        WaitUntilOthersSleep();
    }
}

std::size_t ScriptFixture::PreparsedDataInUse() const {
    return simulator::Machine::Get().PreparsedDataInUse() - oldPreparsedData_;
}

std::size_t ScriptFixture::GlobalMemoryInUse() const {
    return simulator::Machine::Get().GlobalMemoryInUse() - oldGlobalMemory_;
}

std::vector<std::string> ScriptFixture::Events() const {
    std::vector<std::string> events = results_;
    const auto append = [&events](const std::vector<std::string>& more) {
        events.insert(events.end(), more.begin(), more.end());
    };
    append(kit::HostCallbacks::Calls());
    append(LoggedLines(logDirectory_));
    std::sort(events.begin(), events.end());
    return events;
}

}  // namespace faults
