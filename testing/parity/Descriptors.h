// The report descriptors that both implementations are asked about, each with one top-level
// collection.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace parity {

struct Descriptor {
    std::string name;  // also of the file with the expected transcript
    std::vector<std::uint8_t> bytes;
};

std::vector<Descriptor> TouchpadDescriptors();  // the touchpads that the agent drives
std::vector<Descriptor> DeviceDescriptors();    // laid out as other devices are
std::vector<Descriptor> FieldDescriptors();     // one rule of the HID standard each
std::vector<Descriptor> ButtonDescriptors();    // the same for buttons and arrays

const std::vector<Descriptor>& AllDescriptors();

}  // namespace parity
