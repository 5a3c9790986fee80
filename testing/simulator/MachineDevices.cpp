// Plugging devices into the machine.
#include <algorithm>
#include <stdexcept>

#include "testing/simulator/DevicePaths.h"
#include "testing/simulator/Machine.h"
#include "testing/simulator/MachineState.h"
#include "testing/simulator/Text.h"

namespace simulator {
namespace {

bool IsTaken(const std::wstring& path) {
    const auto& devices = State().devices;
    return std::any_of(devices.begin(), devices.end(), [&](const auto& device) {
        return FoldCase(device->Description().path) == FoldCase(path);
    });
}

}  // namespace

std::shared_ptr<Device> Machine::Plug(const DeviceDescription& description) {
    if (hid::ParseReportDescriptor(description.reportDescriptor).size() != 1) {
        throw std::invalid_argument("not exactly one top-level collection");
    }
    return PlugAll(description).front();
}

std::vector<std::shared_ptr<Device>> Machine::PlugAll(const DeviceDescription& description) {
    const auto collections = hid::ParseReportDescriptor(description.reportDescriptor);
    const MachineLock lock;
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
    return plugged;
}

}  // namespace simulator
