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

}  // namespace fuzz
