// Calls of other threads while a session opens.
#include <chrono>
#include <functional>
#include <optional>
#include <thread>

#include "testing/kit/native/InputTest.h"

namespace kit {
namespace {

class ConcurrentOpeningTest : public InputTest {
 protected:
    // Calls `call` on another thread when the opening thread calls this platform function.
    void During(const char* function, std::function<void()> call) {
        machine_.SetFaultPolicy([=, host = std::this_thread::get_id(),
                                 done = false](const simulator::Call& each) mutable {
            if (each.thread == host && each.function == function && !done) {
                done = true;
                std::thread(call).join();
            }
            return std::optional<Fault>();
        });
    }
};

TEST_F(ConcurrentOpeningTest, OfASecondThreadFindsTheSessionOpen) {
    Plug();
    const auto information = vela::ScanHIDInformation(&session_);
    machine_.ForgetCalls();
    std::optional<std::uint32_t> second;
    std::thread other;
    machine_.SetFaultPolicy([&, host = std::this_thread::get_id()](const simulator::Call& call) {
        if (call.thread == host && call.function == "CreateFileW") {
            other = std::thread([&] { second = session_.Initialize(information); });
            EXPECT_TRUE(log_.WaitForLine("CTandrelHID initialize start", 2));
            // Gives the second thread the time to reach the mutex.
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return std::optional<Fault>();
    });
    EXPECT_EQ(session_.Initialize(information), vela::kHidOpen);
    other.join();
    EXPECT_EQ(second, vela::kHidOpen);
    EXPECT_EQ(machine_.CountCalls("CreateFileW"), 1U);
}

// Other processes see the mutex and may then expect a touchpad that shows lights.
TEST_F(ConcurrentOpeningTest, TheTabletModeHasEndedWhenTheMutexShowsTheSession) {
    OpenAndLight();
    device_->SendInput(InputReport({kDisabled}));
    ASSERT_TRUE(HostCallbacks::WaitForCalls(1));
    session_.Uninitialize();
    device_->ForgetOutputs();
    During("CreateMutexW", [this] { TryUpdate(); });
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    EXPECT_TRUE(device_->WaitForOutputs(1));
}

}  // namespace
}  // namespace kit
