#include "testing/simulator/Machine.h"

#include <algorithm>
#include <utility>

#include "testing/simulator/MachineState.h"
#include "testing/simulator/Text.h"
#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator {

Machine::Machine() = default;

Machine& Machine::Get() {
    static Machine& machine = *new Machine;
    return machine;
}

void Machine::Reset() {
    const MachineLock lock;
    MachineState& state = State();
    // Pending reads on old devices complete, so that their threads can end.
    for (const auto& device : state.devices) device->Disconnect();
    state.devices.clear();
    state.pluggedDevices = 0;
    state.calls = CallLog();
    state.faults = FaultScript();
    state.handles.Restart();
    state.recordsFileCalls = false;
    state.endTimedWaits = false;
    state.names.clear();
    state.foreignMutexes.clear();
    state.files.clear();
    state.modules.clear();
    state.stoppedClock.reset();
    state.debugOutput.clear();
    state.misuse.clear();
}

std::vector<Call> Machine::Calls() const {
    const MachineLock lock;
    return State().calls.Calls();
}

std::vector<std::string> Machine::CallTexts(
    std::initializer_list<std::string_view> functions) const {
    std::vector<std::string> texts;
    const MachineLock lock;
    for (const Call& call : State().calls.Calls()) {
        const bool named =
            std::find(functions.begin(), functions.end(), call.function) != functions.end();
        if (named || functions.size() == 0) texts.push_back(call.Text());
    }
    return texts;
}

std::size_t Machine::CountCalls(std::string_view function) const {
    const MachineLock lock;
    return State().calls.Count(function);
}

bool Machine::WaitForCalls(std::string_view function, std::size_t count) const {
    MachineLock lock;
    return WaitUntil(lock, [&] { return State().calls.Count(function) >= count; });
}

void Machine::ForgetCalls() {
    const MachineLock lock;
    State().calls.Forget();
}

void Machine::RecordCalls(bool record) {
    const MachineLock lock;
    State().calls.SetRecording(record);
}

void Machine::RecordFileCalls(bool record) {
    const MachineLock lock;
    State().recordsFileCalls = record;
}

void Machine::FailNext(std::string_view function, Fault fault, std::size_t skip) {
    const MachineLock lock;
    State().faults.FailNext(function, fault, skip);
}

void Machine::FailAlways(std::string_view function, Fault fault) {
    const MachineLock lock;
    State().faults.FailAlways(function, fault);
}

void Machine::StopFailing(std::string_view function) {
    const MachineLock lock;
    State().faults.StopFailing(function);
}

void Machine::SetFaultPolicy(std::function<std::optional<Fault>(const Call&)> policy) {
    const MachineLock lock;
    State().faults.SetPolicy(std::move(policy));
}

void Machine::ExpireTimedWaits(bool expire) {
    const MachineLock lock;
    State().endTimedWaits = expire;
    // Waits that have begun end as well.
    State().handles.ReconsiderWaits();
}

void Machine::StopClockAt(const std::tm& localTime) {
    const MachineLock lock;
    State().stoppedClock = localTime;
}

void Machine::PutFile(const std::wstring& path, const std::string& bytes) {
    const MachineLock lock;
    State().files[FoldCase(path)] = bytes;
}

void Machine::SetModulePath(void* module, const std::wstring& path) {
    const MachineLock lock;
    State().modules[module] = path;
}

std::vector<std::string> Machine::DebugOutput() const {
    const MachineLock lock;
    return State().debugOutput;
}

std::vector<std::string> Machine::OpenHandles() const {
    const MachineLock lock;
    return State().handles.OpenNames();
}

std::size_t Machine::OpenRealFiles() const {
    const MachineLock lock;
    return State().realFiles.Count();
}

std::size_t Machine::PreparsedDataInUse() const { return hid::PreparsedDataInUse(); }

std::size_t Machine::GlobalMemoryInUse() const {
    const MachineLock lock;
    return State().globalMemory.size();
}

std::vector<std::string> Machine::Misuse() const {
    const MachineLock lock;
    return State().misuse;
}

}  // namespace simulator
