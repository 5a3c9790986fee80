// Touchpads for fuzzers to plug in.
#pragma once

#include <algorithm>
#include <optional>
#include <vector>

#include "testing/simulator/Machine.h"
#include "testing/simulator/hid/ReportDescriptor.h"
#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace fuzz {

// Of a button touchpad's or a haptic touchpad's layout.
template <typename Layout>
simulator::DeviceDescription Describe(const Layout& layout) {
    simulator::DeviceDescription description;
    description.reportDescriptor = virtual_touchpad::BuildReportDescriptor(layout);
    description.vendorId = layout.vendorId;
    description.productId = layout.productId;
    description.versionNumber = layout.versionNumber;
    description.productString = layout.productString;
    return description;
}

// The longest that the device may send; 0 when it reports nothing.
inline std::size_t InputReportLength(const simulator::Device& device) {
    return simulator::hid::CapsOf(device.Collection()).InputReportByteLength;
}

// The light report that the device got last, and shows; none when it got none.
inline std::optional<simulator::Bytes> LastLights(const simulator::Device& device) {
    const std::vector<simulator::Bytes> reports = device.Outputs();
    const auto last =
        std::find_if(reports.rbegin(), reports.rend(), [](const simulator::Bytes& report) {
            return report[0] == virtual_touchpad::kLightReportId;
        });
    if (last == reports.rend()) return std::nullopt;
    return *last;
}

// An empty machine that keeps no record of calls, which would cost more time than the agent.
inline simulator::Machine& EmptyMachine() {
    simulator::Machine& machine = simulator::Machine::Get();
    machine.Reset();
    machine.RecordCalls(false);
    return machine;
}

}  // namespace fuzz
