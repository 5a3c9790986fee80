// One device in a SETUPAPI device information set.
#pragma once

#include <windows.h>
#include <setupapi.h>

#include <stdexcept>
#include <string>

namespace virtual_touchpad {

[[noreturn]] inline void ThrowLastError(const std::string& what) {
    throw std::runtime_error(what + ": error " + std::to_string(GetLastError()));
}

class DeviceInfoSet {
 public:
    explicit DeviceInfoSet(HDEVINFO set) : set_(set) {
        if (set_ == INVALID_HANDLE_VALUE) ThrowLastError("cannot list devices");
        device_.cbSize = sizeof(device_);
    }
    ~DeviceInfoSet() { SetupDiDestroyDeviceInfoList(set_); }
    DeviceInfoSet(const DeviceInfoSet&) = delete;
    DeviceInfoSet& operator=(const DeviceInfoSet&) = delete;

    HDEVINFO Set() const { return set_; }
    SP_DEVINFO_DATA* Device() { return &device_; }

    // One step of an installation, by the class installer or the default.
    void Install(DI_FUNCTION function, const char* what) {
        if (!SetupDiCallClassInstaller(function, set_, &device_)) ThrowLastError(what);
    }

 private:
    HDEVINFO set_;
    SP_DEVINFO_DATA device_ = {};
};

}  // namespace virtual_touchpad
