// Device interface paths without what may identify a machine or its owner.
#pragma once

#include <map>
#include <string>

namespace recording {

// A path has the form \\?\hid#HARDWARE#INSTANCE#{class}. The instance id can contain a serial
// number, and the hardware id of a Bluetooth device its address. Each is replaced by a number,
// counted from 1; equal ones have the same number, also those of a device's several collections.
class AnonymousPaths {
 public:
    std::string Of(const std::string& path);

 private:
    std::string Number(const std::string& identity);

    std::map<std::string, std::size_t> numbers_;
};

}  // namespace recording
