// Touchpads for fuzzers to plug in.
#pragma once

#include <algorithm>
#include <optional>
#include <vector>

#include "testing/kit/native/Layouts.h"
#include "testing/simulator/Machine.h"
#include "testing/simulator/hid/ReportDescriptor.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace fuzz {

using kit::Describe;
using kit::EmptyMachine;

// Returns the length of the device's longest input report; 0 when it has none.
inline std::size_t InputReportLength(const simulator::Device& device) {
    return simulator::hid::CapsOf(device.Collection()).InputReportByteLength;
}

// Returns the last light report that the device got, which it shows; nothing when it got none.
inline std::optional<simulator::Bytes> LastLights(const simulator::Device& device) {
    const std::vector<simulator::Bytes> reports = device.Outputs();
    const auto last =
        std::find_if(reports.rbegin(), reports.rend(), [](const simulator::Bytes& report) {
            return report[0] == virtual_touchpad::kLightReportId;
        });
    if (last == reports.rend()) return std::nullopt;
    return *last;
}

}  // namespace fuzz
