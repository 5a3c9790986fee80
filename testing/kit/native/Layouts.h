// Touchpads to plug into the simulated machine.
#pragma once

#include "testing/simulator/Machine.h"
#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace kit {

using virtual_touchpad::HapticLayout;
using virtual_touchpad::TouchpadLayout;

// Returns the device for the layout of a button touchpad or a haptic touchpad.
template <typename Layout = TouchpadLayout>
simulator::DeviceDescription Describe(const Layout& layout) {
    simulator::DeviceDescription description;
    description.reportDescriptor = virtual_touchpad::BuildReportDescriptor(layout);
    description.vendorId = layout.vendorId;
    description.productId = layout.productId;
    description.versionNumber = layout.versionNumber;
    description.productString = layout.productString;
    return description;
}

// Returns a touchpad that is detachable by its product string.
inline TouchpadLayout DetachableLayout() {
    TouchpadLayout layout;
    layout.productString = L"Vela Detachable Touchpad";
    return layout;
}

// Returns the machine without devices, for long runs and measurements: it does not record calls,
// as that takes longer than the agent's own work.
inline simulator::Machine& EmptyMachine() {
    simulator::Machine& machine = simulator::Machine::Get();
    machine.Reset();
    machine.RecordCalls(false);
    return machine;
}

}  // namespace kit
