#include "testing/simulator/Machine.h"

#include <algorithm>
#include <ctime>
#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "testing/simulator/DevicePaths.h"
#include "testing/simulator/MachineState.h"
#include "testing/simulator/Notifications.h"
#include "testing/simulator/Text.h"
#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator {
namespace {

bool IsTaken(const std::wstring& path) {
    const auto& devices = State().devices;
    return std::any_of(devices.begin(), devices.end(), [&](const auto& device) {
        return FoldCase(device->Description().path) == FoldCase(path);
    });
}

}  // namespace

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
    state.libraries.clear();
    state.stoppedClock.reset();
    state.debugOutput.clear();
    state.misuse.clear();
}

std::shared_ptr<Device> Machine::Plug(const DeviceDescription& description) {
    if (hid::ParseReportDescriptor(description.reportDescriptor).size() != 1) {
        throw std::invalid_argument("not exactly one top-level collection");
    }
    return PlugAll(description).front();
}

std::vector<std::shared_ptr<Device>> Machine::PlugAll(const DeviceDescription& description) {
    const auto collections = hid::ParseReportDescriptor(description.reportDescriptor);
    MachineLock lock;
    const std::size_t number = ++State().pluggedDevices;
    std::vector<std::shared_ptr<Device>> plugged;
    for (std::size_t i = 0; i < collections.size(); ++i) {
        DeviceDescription described = description;
        described.path = InterfacePath(description, number, collections.size() > 1 ? i + 1 : 0);
        if (IsTaken(described.path)) throw std::invalid_argument("a device of this path exists");
        const auto device = std::make_shared<DeviceObject>(described, collections[i]);
        State().devices.push_back(device);
        plugged.push_back(std::make_shared<Device>(device));
    }
    lock.unlock();
    for (const auto& device : plugged) {
        Notifications::Get().Notify(Notice::Arrival, device->Path());
    }
    return plugged;
}

void Machine::Resume() { Notifications::Get().Notify(Notice::Resume, {}); }

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

void Machine::StopClockAt(const std::string& localTime) {
    std::tm time{};
    if (!(std::istringstream(localTime) >> std::get_time(&time, "%Y-%m-%d %H:%M:%S"))) {
        throw std::invalid_argument("no time: " + localTime);
    }
    const MachineLock lock;
    State().stoppedClock = time;
}

void Machine::PutFile(const std::wstring& path, const std::string& bytes) {
    const MachineLock lock;
    State().files[FoldCase(path)] = bytes;
}

void Machine::SetModulePath(void* module, const std::wstring& path) {
    const MachineLock lock;
    State().modules[module] = path;
}

void Machine::HoldMutexElsewhere(const std::wstring& name, bool denied) {
    const MachineLock lock;
    std::shared_ptr<KernelObject> object = FindNamed(name);
    if (object == nullptr) object = std::make_shared<MutexObject>();
    State().names[name] = object;
    State().foreignMutexes[name] = {object, denied};
}

void Machine::ReleaseMutexElsewhere(const std::wstring& name) {
    const MachineLock lock;
    State().foreignMutexes.erase(name);
}

bool Machine::MutexExists(const std::wstring& name) const {
    const MachineLock lock;
    return std::dynamic_pointer_cast<MutexObject>(FindNamed(name)) != nullptr;
}

void Machine::PutLibrary(const std::wstring& path, const std::map<std::string, void*>& functions) {
    const MachineLock lock;
    State().libraries[FoldCase(path)] = functions;
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
