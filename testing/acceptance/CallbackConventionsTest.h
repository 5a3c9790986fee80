// The stage of tests with callbacks that call the library, also those that come inside UnInit.
#pragma once

#include <atomic>

#include "testing/acceptance/TouchpadAcceptanceTest.h"

namespace acceptance {

class CallbackConventionsTest : public TouchpadAcceptanceTest {
 protected:
    CallbackConventionsTest() { theAgent = &agent_; }

    // The callbacks get no argument of the host's own.
    static inline AgentDll* theAgent = nullptr;

    static bool WaitFor(const std::function<bool()>& wanted) {
        const auto deadline = std::chrono::steady_clock::now() + kPatience;
        while (!wanted() && std::chrono::steady_clock::now() < deadline) Sleep(1);
        return wanted();
    }
    // Temporarily disabled by the gesture: EnableFeature(0) and UnInit then report status 0.
    void OpenDisabled(VelaStatusChangeCallback callback) {
        static std::atomic<bool> isDisabled{false};
        isDisabled = false;
        ASSERT_EQ(agent_.Init(), VELA_INIT_OPEN);
        LightAll();
        agent_.SetVelaStatusChangeCallback([](std::uint32_t status) {
            if (status == VELA_STATUS_TEMPORARILY_DISABLED) isDisabled = true;
        });
        Touchpad().SendEvent(0x45);
        ASSERT_TRUE(WaitFor([] { return isDisabled.load(); }));
        agent_.SetVelaStatusChangeCallback(callback);
    }
    bool WaitUntilClosed() {
        return Touchpad().Device().WaitForState(
            [](const VirtualHidState& state) { return state.readWriteOpens == 0; }, kPatience);
    }
};

}  // namespace acceptance
