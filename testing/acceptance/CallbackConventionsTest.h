// The fixture of tests with callbacks that call the library, also during UnInit.
#pragma once

#include <atomic>

#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/WaitUntil.h"

namespace acceptance {

class CallbackConventionsTest : public TouchpadAcceptanceTest {
 protected:
    CallbackConventionsTest() { theAgent = &agent_; }

    // The callbacks get no argument of the host's own, so they use this.
    static inline AgentDll* theAgent = nullptr;

    // Disables the touchpad by the gesture: EnableFeature(0) and UnInit then report status 0.
    void OpenDisabled(VelaStatusChangeCallback callback) {
        static std::atomic<bool> isDisabled{false};
        isDisabled = false;
        ASSERT_EQ(agent_.Init(), VELA_INIT_OPEN);
        LightAll();
        agent_.SetVelaStatusChangeCallback([](std::uint32_t status) {
            if (status == VELA_STATUS_TEMPORARILY_DISABLED) isDisabled = true;
        });
        Touchpad().SendEvent(kGesture);
        ASSERT_TRUE(WaitUntil([] { return isDisabled.load(); }));
        agent_.SetVelaStatusChangeCallback(callback);
    }
    bool WaitUntilClosed() {
        return Touchpad().Device().WaitForState(
            [](const VirtualHidState& state) { return state.readWriteOpens == 0; }, kPatience);
    }
};

}  // namespace acceptance
