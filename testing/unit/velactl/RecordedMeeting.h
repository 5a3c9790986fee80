// A virtual touchpad's recording by velactl, with a meeting on it: the DLL drives the touchpad, and
// what both sent is added as what the replay of the recording expects.
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>

#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/descriptor/KnownLayouts.h"

namespace velactl_test {

// No other device may be plugged in. Throw std::runtime_error when velactl fails.
nlohmann::ordered_json RecordWithMeeting(const virtual_touchpad::TouchpadLayout& layout);
nlohmann::ordered_json RecordWithLevel(const virtual_touchpad::HapticLayout& layout);

}  // namespace velactl_test
