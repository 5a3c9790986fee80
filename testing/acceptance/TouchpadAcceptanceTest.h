// The fixture of the acceptance tests: the built DLL as a host loads it, and a virtual touchpad.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "testing/kit/HostCallbacks.h"
#include "testing/kit/LogFolder.h"
#include "testing/kit/Reports.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace acceptance {

using namespace kit;
using virtual_touchpad::Lights;
using virtual_touchpad::TouchpadControl;
using virtual_touchpad::TouchpadLayout;

class TouchpadAcceptanceTest : public testing::Test {
 protected:
    // No device is plugged in at first.
    TouchpadAcceptanceTest();
    ~TouchpadAcceptanceTest() override;

    void Plug(const TouchpadLayout& layout = {});
    void Unplug();
    TouchpadControl& Touchpad() { return *touchpad_; }

    // Calls Init and registers both callbacks.
    void Open();
    // Enables and shows all four buttons, switches the feature on, and activates with `activation`.
    void LightAll(std::uint32_t activation = VELA_ACTIVE);

    // Plugs in, opens and lights all four buttons. Call it within ASSERT_NO_FATAL_FAILURE.
    void OpenLit(const TouchpadLayout& layout = {});

    // Returns true once the touchpad's lights are as wanted.
    bool WaitForLights(const std::function<bool(const Lights&)>& wanted);

    AgentDll agent_;
    LogFolder log_;

 private:
    std::unique_ptr<TouchpadControl> touchpad_;
};

}  // namespace acceptance
