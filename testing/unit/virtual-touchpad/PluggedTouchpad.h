// A virtual touchpad that is plugged in while the object lives.
#pragma once

#include <stdexcept>
#include <string>

#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace virtual_touchpad {

class PluggedTouchpad {
 public:
    explicit PluggedTouchpad(const TouchpadLayout& layout = {},
                             const std::wstring& name = L"tested")
        : name_(name), path_(PlugAnew(layout, name)), control_(name, layout) {}
    ~PluggedTouchpad() {
        if (plugged_) Unplug(name_);
    }
    PluggedTouchpad(const PluggedTouchpad&) = delete;
    PluggedTouchpad& operator=(const PluggedTouchpad&) = delete;

    void PullOut() {
        Unplug(name_);
        plugged_ = false;
    }

    const std::wstring& Path() const { return path_; }
    TouchpadControl& Control() { return control_; }
    VirtualDevice& Device() { return control_.Device(); }

 private:
    // Unplugs the device first that an aborted run may have left.
    static std::wstring PlugAnew(const TouchpadLayout& layout, const std::wstring& name) {
        try {
            Unplug(name);
        } catch (const std::runtime_error&) {
        }
        return Plug(layout, name);
    }

    std::wstring name_;
    std::wstring path_;
    TouchpadControl control_;
    bool plugged_ = true;
};

}  // namespace virtual_touchpad
