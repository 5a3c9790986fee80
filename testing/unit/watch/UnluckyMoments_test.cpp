// Touchpads that leave at unlucky moments: the next one shows what the host wants.
#include <atomic>
#include <optional>
#include <thread>

#include "testing/unit/watch/WatchTest.h"

namespace watch_tests {
namespace {

using kit::AllLit;
using testing::IsEmpty;

// A platform call, and the number of the calls to it from the arrival on at which the touchpad
// leaves. The calls of an opening, in their order, and those of the threads that it starts.
struct Moment {
    const char* function;
    std::size_t count;
};

constexpr Moment kMoments[] = {
    {"SetupDiGetClassDevsW", 1},
    {"SetupDiGetDeviceInterfaceDetailW", 1},
    {"CreateFileW", 1},
    {"HidD_GetPreparsedData", 1},
    {"HidP_GetCaps", 1},
    {"HidP_GetValueCaps", 1},
    {"CreateFileW", 2},
    {"CreateMutexW", 1},
    {"ReadFile", 1},
    {"HidP_MaxUsageListLength", 1},
    {"HidP_SetUsageValue", 1},
    {"WriteFile", 1},
    {"HidP_SetUsages", 3},
    {"WriteFile", 3},
};

class UnluckyMomentTest : public WatchTest, public testing::WithParamInterface<Moment> {
 protected:
    // Plugs a touchpad in that leaves at the moment.
    void PlugForAMoment(const kit::TouchpadLayout& layout = {}) {
        machine_.ForgetCalls();
        const auto device = Plug(layout);
        ASSERT_TRUE(machine_.WaitForCalls(GetParam().function, GetParam().count));
        device->Unplug();
    }
};

TEST_P(UnluckyMomentTest, OfAnOpeningLeavesTheNextTouchpadLit) {
    Start().Change(LightAll);
    for (int i = 0; i < 5; ++i) {
        PlugForAMoment();
        const auto next = Plug();
        EXPECT_TRUE(WaitForLights(*next, AllLit()));
        next->Unplug();
        ASSERT_TRUE(kit::WaitUntil([&] { return !IsOpen(); }));
    }
    Stop();
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_P(UnluckyMomentTest, OfAnOpeningMayBeTheEndOfTheWatch) {
    for (int i = 0; i < 5; ++i) {
        Start().Change(LightAll);
        PlugForAMoment();
        Stop();
    }
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Calls, UnluckyMomentTest, testing::ValuesIn(kMoments),
                         [](const auto& tested) {
                             return tested.param.function + std::to_string(tested.param.count);
                         });

// --- in the host's handlers ----------------------------------------------------------------------

class ReplugInHandlerTest : public WatchTest {
 protected:
    // Starts a watch whose handlers are these only.
    Watch& StartWith(const WatchHandlers& handlers) {
        Watch& watch = watch_.emplace(vela_agent::Library(L"/host/VelaAgent.dll"), handlers);
        watch.Change(LightAll);
        return watch;
    }

    // Does something the first time only.
    std::function<void()> Once(std::function<void()> action) {
        return [this, action = std::move(action)] {
            if (!std::exchange(isDone_, true)) action();
        };
    }

    std::shared_ptr<simulator::Device> device_;
    std::shared_ptr<simulator::Device> next_;

 private:
    bool isDone_ = false;  // used on the watch's thread
    std::optional<Watch> watch_;
};

TEST_F(ReplugInHandlerTest, LightsATouchpadThatLeavesWhenItIsFound) {
    device_ = Plug();
    WatchHandlers handlers;
    handlers.onFound = Once([this] { device_->Unplug(); });
    std::atomic<bool> isLost{false};
    handlers.onLost = [&] { isLost = true; };
    const Watch& watch = StartWith(handlers);
    ASSERT_TRUE(kit::WaitUntil([&] { return isLost.load(); }));
    EXPECT_FALSE(watch.IsOpen());
    EXPECT_EQ(device_->OpenHandles(), 0U);
    next_ = Plug();
    EXPECT_TRUE(WaitForLights(*next_, AllLit()));
}

TEST_F(ReplugInHandlerTest, LightsATouchpadThatComesBackWhenItIsFound) {
    device_ = Plug();
    next_ = Plug();
    next_->Unplug();
    WatchHandlers handlers;
    handlers.onFound = Once([this] {
        device_->Unplug();
        next_->PlugIn();
    });
    StartWith(handlers);
    EXPECT_TRUE(WaitForLights(*next_, AllLit()));
}

TEST_F(ReplugInHandlerTest, LightsATouchpadThatComesBackWhenItIsLost) {
    device_ = Plug();
    WatchHandlers handlers;
    handlers.onLost = Once([this] {
        device_->ForgetOutputs();
        device_->PlugIn();
    });
    StartWith(handlers);
    ASSERT_TRUE(WaitForLights(*device_, AllLit()));
    ASSERT_TRUE(kit::WaitUntil([&] { return device_->PendingReads() == 1; }));
    device_->Unplug();
    EXPECT_TRUE(WaitForLights(*device_, AllLit()));
}

// --- at the end ----------------------------------------------------------------------------------

using UnplugAtTheEndTest = WatchTest;

TEST_F(UnplugAtTheEndTest, LeavesNothingOpen) {
    constexpr const char* kCalls[] = {"SetEvent", "HidP_SetUsageValue", "WriteFile", "CloseHandle"};
    for (const kit::TouchpadLayout& layout : {kit::TouchpadLayout(), kit::DetachableLayout()}) {
        for (const char* const call : kCalls) {
            const auto device = Plug(layout);
            Start().Change(LightAll);
            ASSERT_TRUE(WaitForLights(*device, AllLit()));
            machine_.ForgetCalls();
            std::thread end([this] { Stop(); });
            EXPECT_TRUE(machine_.WaitForCalls(call, 1)) << call;
            device->Unplug();
            end.join();
            EXPECT_EQ(device->OpenHandles(), 0U) << call;
        }
    }
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

}  // namespace
}  // namespace watch_tests
