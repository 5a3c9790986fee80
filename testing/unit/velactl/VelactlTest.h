// The fixture of velactl's tests with devices. No device is plugged in at first.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "testing/kit/Reports.h"
#include "testing/kit/WaitUntil.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/kit/windows/Lights.h"
#include "testing/unit/velactl/Velactl.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace velactl_test {

using namespace kit;
using virtual_touchpad::HapticLayout;
using virtual_touchpad::Lights;
using virtual_touchpad::Requests;
using virtual_touchpad::TouchpadControl;
using virtual_touchpad::TouchpadLayout;
using virtual_touchpad::VirtualDevice;

class VelactlTest : public testing::Test {
 protected:
    VelactlTest() { virtual_touchpad::UnplugAll(); }
    ~VelactlTest() override {
        touchpad_.reset();
        virtual_touchpad::UnplugAll();
    }

    void Plug(const TouchpadLayout& layout = {}) {
        path_ = virtual_touchpad::Plug(layout);
        touchpad_ = std::make_unique<TouchpadControl>(virtual_touchpad::kDefaultName, layout);
    }
    void Unplug() {
        touchpad_.reset();
        virtual_touchpad::Unplug();
    }
    TouchpadControl& Touchpad() { return *touchpad_; }
    // Returns the path in UTF-8; HID paths are plain letters and digits.
    std::string Path() const { return {path_.begin(), path_.end()}; }

    template <typename Wanted>
    bool WaitForLights(Wanted wanted) {
        return WaitUntil([&] { return wanted(touchpad_->CurrentLights()); });
    }

 private:
    std::wstring path_;
    std::unique_ptr<TouchpadControl> touchpad_;
};

}  // namespace velactl_test
