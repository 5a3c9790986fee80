// The bus of a HID device, as far as its path tells.
#pragma once

#include <string>

namespace recording {

// Returns "USB", "Bluetooth", "Bluetooth LE", "I2C" or "unknown".
std::string BusOf(const std::string& path);

}  // namespace recording
