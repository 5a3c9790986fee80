// VelaAgentWatch.hpp with the built DLL, a virtual touchpad and the machine's own notifications.
#include "include/VelaAgentWatch.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <optional>

#include "testing/kit/WaitUntil.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/kit/windows/FirstArrival.h"
#include "testing/kit/windows/Lights.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using namespace virtual_touchpad::events;
using vela_agent::Settings;
using vela_agent::Watch;
using virtual_touchpad::TouchpadControl;
using virtual_touchpad::TouchpadLayout;

constexpr const wchar_t* kName = L"watched";

class WatchOnWindowsTest : public testing::Test {
 protected:
    // A watch opens any touchpad, also one that an ended process has left plugged in.
    WatchOnWindowsTest() { virtual_touchpad::UnplugAll(); }
    ~WatchOnWindowsTest() override {
        watch_.reset();
        Unplug();
    }

    void Plug(const TouchpadLayout& layout = {}) {
        virtual_touchpad::Plug(layout, kName);
        touchpad_.emplace(kName);
    }
    void Unplug() {
        if (!touchpad_) return;
        touchpad_.reset();
        virtual_touchpad::Unplug(kName);
    }
    void Start() {
        const vela_agent::Library library(kit::ProgramFolder() / "VelaAgent.dll");
        vela_agent::WatchHandlers handlers;
        handlers.onFound = [this] { ++found_; };
        handlers.onLost = [this] { ++lost_; };
        watch_.emplace(library, handlers);
        watch_->Change([](Settings& settings) {
            settings.activation = VELA_ACTIVE;
            settings.feature = true;
            for (auto& button : settings.buttons) button = {true, true, false};
        });
    }
    bool PlugUntilLit() {
        return kit::PlugUntilNoticed([this] { Plug(); }, [this] { Unplug(); },
                                     [this] { return IsLit(); });
    }
    bool IsLit() const { return kit::AllFourLit(touchpad_->CurrentLights()); }
    bool BecomesLit() const {
        return kit::WaitUntil([this] { return IsLit(); });
    }
    bool WaitForLights(const std::string& lights) const {
        return kit::WaitUntil([&] { return kit::Describe(touchpad_->CurrentLights()) == lights; });
    }

    std::optional<TouchpadControl> touchpad_;
    std::optional<Watch> watch_;
    std::atomic<int> found_{0};
    std::atomic<int> lost_{0};
};

TEST_F(WatchOnWindowsTest, IsNotifiedThroughItsWindow) {
    Start();
    EXPECT_TRUE(watch_->IsNotified());
    EXPECT_FALSE(watch_->IsOpen());
}

TEST_F(WatchOnWindowsTest, LightsATouchpadThatComesBackAgainAndAgain) {
    Start();
    ASSERT_TRUE(PlugUntilLit());
    for (int i = 1; i <= 3; ++i) {
        Unplug();
        ASSERT_TRUE(kit::WaitUntil([&] { return lost_ == i; }));
        EXPECT_EQ(found_, i);
        Plug();
        ASSERT_TRUE(BecomesLit());
    }
}

TEST_F(WatchOnWindowsTest, LightsADetachableTouchpadThatComesBack) {
    TouchpadLayout layout;
    layout.productString = L"Vela Detachable Touchpad";
    Plug(layout);
    Start();
    ASSERT_TRUE(BecomesLit());
    Unplug();
    ASSERT_TRUE(kit::WaitUntil([&] { return lost_ == 1; }));
    Plug(layout);
    EXPECT_TRUE(BecomesLit());
}

TEST_F(WatchOnWindowsTest, ShowsWhatAPressToggledBefore) {
    Plug();
    Start();
    ASSERT_TRUE(BecomesLit());
    touchpad_->Press(kCameraButton);
    const char* const lights =
        "camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0";
    ASSERT_TRUE(WaitForLights(lights));
    Unplug();
    Plug();
    EXPECT_TRUE(WaitForLights(lights));
}

TEST_F(WatchOnWindowsTest, OpensAgainAfterAResume) {
    Plug();
    Start();
    ASSERT_TRUE(BecomesLit());
    const HWND window = FindWindowExW(HWND_MESSAGE, nullptr, L"VelaAgentWatch", nullptr);
    ASSERT_NE(window, nullptr);
    const auto outputs = [&] { return touchpad_->Device().State().outputCount; };
    const auto before = outputs();
    PostMessageW(window, WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
    EXPECT_TRUE(kit::WaitUntil([&] { return outputs() > before + 1; }));
    EXPECT_TRUE(BecomesLit());
    EXPECT_EQ(lost_, 0);
}

TEST_F(WatchOnWindowsTest, LeavesTheTouchpadDark) {
    Plug();
    Start();
    ASSERT_TRUE(BecomesLit());
    watch_.reset();
    EXPECT_TRUE(WaitForLights(kit::kAllDark));
}

}  // namespace
