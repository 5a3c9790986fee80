// The fixture of the tests of example hosts: a machine without touchpads, before and after.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

#include "testing/kit/windows/FirstArrival.h"
#include "testing/kit/windows/Lights.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace guide {

class HostTest : public testing::Test {
 protected:
    HostTest() { virtual_touchpad::UnplugAll(); }
    ~HostTest() override { virtual_touchpad::UnplugAll(); }

    // Plugs the touchpad in for a host that was started without one.
    static bool PlugUntilLit(const std::function<bool(const virtual_touchpad::Lights&)>& wanted) {
        return kit::PlugUntilNoticed(
            [] { virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{}); },
            virtual_touchpad::UnplugAll,
            [&] { return wanted(virtual_touchpad::TouchpadControl().CurrentLights()); });
    }
    // Returns true once the touchpad's lights are as wanted.
    static bool WaitForLights(const virtual_touchpad::TouchpadControl& touchpad,
                              const std::function<bool(const virtual_touchpad::Lights&)>& wanted) {
        return touchpad.Device().WaitForState(
            [&](const VirtualHidState&) { return wanted(touchpad.CurrentLights()); },
            std::chrono::seconds(20));
    }
};

}  // namespace guide
