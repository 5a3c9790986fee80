// The report descriptors of the comparison, each with one top-level collection.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace parity {

struct Descriptor {
    std::string name;  // also the file name of the expected transcript
    std::vector<std::uint8_t> bytes;
};

std::vector<Descriptor> TouchpadDescriptors();  // the touchpads that the agent drives
std::vector<Descriptor> DeviceDescriptors();    // layouts of other devices
std::vector<Descriptor> FieldDescriptors();     // one rule of the HID standard each
std::vector<Descriptor> ButtonDescriptors();    // the same for buttons and arrays
std::vector<Descriptor> UnusualDescriptors();   // what few devices declare

const std::vector<Descriptor>& AllDescriptors();

}  // namespace parity
