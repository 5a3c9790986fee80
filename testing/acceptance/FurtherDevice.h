// A device besides the fixture's touchpad, plugged in while the object lives.
#pragma once

#include <memory>
#include <string>

#include "testing/virtual-touchpad/control/VirtualDevice.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace acceptance {

class FurtherDevice {
 public:
    FurtherDevice(const std::wstring& name, const virtual_touchpad::DeviceSettings& settings)
        : name_(name),
          path_(virtual_touchpad::Plug(settings, name)),
          device_(std::make_unique<virtual_touchpad::VirtualDevice>(name)) {}
    explicit FurtherDevice(const std::wstring& name,
                           const virtual_touchpad::TouchpadLayout& layout = {})
        : FurtherDevice(name, virtual_touchpad::SettingsOf(layout)) {}
    ~FurtherDevice() {
        device_.reset();
        virtual_touchpad::Unplug(name_);
    }
    FurtherDevice(const FurtherDevice&) = delete;
    FurtherDevice& operator=(const FurtherDevice&) = delete;

    const std::wstring& Path() const { return path_; }
    virtual_touchpad::VirtualDevice& Device() { return *device_; }
    // Returns true when no host has it open and none ever wrote to it.
    bool IsUntouched() const {
        const VirtualHidState state = device_->State();
        return state.readWriteOpens == 0 && state.outputCount == 0 && state.featureGetCount == 0;
    }

 private:
    std::wstring name_;
    std::wstring path_;
    std::unique_ptr<virtual_touchpad::VirtualDevice> device_;
};

}  // namespace acceptance
