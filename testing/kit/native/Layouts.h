// Touchpads to plug into the simulated machine.
#pragma once

#include "testing/simulator/Machine.h"
#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace kit {

using virtual_touchpad::HapticLayout;
using virtual_touchpad::TouchpadLayout;

// The device of a button touchpad's or a haptic touchpad's layout.
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

// A touchpad whose product string says that it can be taken off.
inline TouchpadLayout DetachableLayout() {
    TouchpadLayout layout;
    layout.productString = L"Vela Detachable Touchpad";
    return layout;
}

// The machine without devices. It keeps no record of calls, which would cost more time than the
// agent: for long runs and measurements.
inline simulator::Machine& EmptyMachine() {
    simulator::Machine& machine = simulator::Machine::Get();
    machine.Reset();
    machine.RecordCalls(false);
    return machine;
}

}  // namespace kit
