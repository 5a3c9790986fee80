// The example host whose touchpad may leave and come back, in a process of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>

#include "testing/acceptance/guide/Program.h"
#include "testing/kit/LogFolder.h"
#include "testing/kit/WaitUntil.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/kit/windows/FirstArrival.h"
#include "testing/kit/windows/Lights.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace guide {
namespace {

using namespace virtual_touchpad::events;
using testing::EndsWith;
using virtual_touchpad::TouchpadControl;
using virtual_touchpad::TouchpadLayout;

// A message waits, until the chat's button is pressed.
constexpr char kLit[] = "camera 3/0 microphone 3/0 chat 3 share screen 3, active 1234, breathing 8";

// The log's line about the last that the host sets.
constexpr char kNotBreathing[] = "SetButtonBreathing for BUTTON_ID 2 (0)";

constexpr wchar_t kWindow[] = L"VelaRecover";

TouchpadLayout Fixed() { return {}; }

TouchpadLayout Detachable() {
    TouchpadLayout layout;
    layout.productString = L"Vela Detachable Touchpad";
    return layout;
}

class RecoveringHost : public testing::Test {
 protected:
    RecoveringHost() { virtual_touchpad::UnplugAll(); }
    ~RecoveringHost() override {
        touchpad_.reset();
        virtual_touchpad::UnplugAll();
    }

    void Plug(const TouchpadLayout& layout = {}) {
        virtual_touchpad::Plug(layout);
        touchpad_.emplace();
    }
    void Unplug() {
        touchpad_.reset();
        virtual_touchpad::Unplug();
    }
    void Start(const std::filesystem::path& folder = kit::ProgramFolder()) {
        host_.emplace(folder / "recover.exe", L"\"" + log_.Path().wstring() + L"\"");
    }
    // Starts a copy of the host in a folder of its own, with a copy of this library.
    void StartCopyWith(const std::filesystem::path& library) {
        std::filesystem::copy_file(kit::ProgramFolder() / "recover.exe",
                                   log_.Path() / "recover.exe");
        std::filesystem::copy_file(kit::ProgramFolder() / library, log_.Path() / "VelaAgent.dll");
        Start(log_.Path());
    }
    bool WaitForLights(const std::string& lights) const {
        return kit::WaitUntil([&] { return kit::Describe(touchpad_->CurrentLights()) == lights; });
    }
    bool BecomesLit() const { return WaitForLights(kLit); }
    bool PlugUntilLit(const TouchpadLayout& layout) {
        return kit::PlugUntilNoticed(
            [&] { Plug(layout); }, [&] { Unplug(); },
            [&] { return kit::Describe(touchpad_->CurrentLights()) == kLit; });
    }
    // The window is created before the host opens the touchpad.
    static HWND Window() { return FindWindowExW(HWND_MESSAGE, nullptr, kWindow, nullptr); }
    // Ends the host as Ctrl+C does.
    void Leave() {
        PostMessageW(Window(), WM_CLOSE, 0, 0);
        EXPECT_EQ(host_->ExitCode(), 0U);
    }

    const kit::LogFolder log_;
    std::optional<TouchpadControl> touchpad_;
    std::optional<Program> host_;
};

class RecoveringHostWithEach : public RecoveringHost,
                               public testing::WithParamInterface<TouchpadLayout (*)()> {};

INSTANTIATE_TEST_SUITE_P(, RecoveringHostWithEach, testing::Values(&Fixed, &Detachable),
                         [](const auto& test) {
                             return test.param == &Fixed ? "FixedTouchpad" : "DetachableTouchpad";
                         });

TEST_P(RecoveringHostWithEach, LightsItWheneverItComesBackAndLeavesItDark) {
    Start();
    ASSERT_TRUE(kit::WaitForNotifiedWindow(kWindow));
    ASSERT_TRUE(PlugUntilLit(GetParam()()));
    std::string expected;
    for (int cycle = 0; cycle < 3; ++cycle) {
        Unplug();
        expected += "found\nlost\n";
        ASSERT_EQ(host_->Output(expected), expected);
        Plug(GetParam()());
        ASSERT_TRUE(BecomesLit());
    }
    Leave();
    EXPECT_TRUE(WaitForLights(kit::kAllDark));
    EXPECT_EQ(host_->Output(), expected + "found\n");
}

TEST_F(RecoveringHost, ShowsWhatAPressToggledBefore) {
    Plug();
    Start();
    ASSERT_TRUE(BecomesLit());
    touchpad_->Press(kCameraButton);
    touchpad_->Press(kChatButton);
    EXPECT_THAT(host_->Output("chat pressed, light on\n"),
                EndsWith("camera pressed, light on\nchat pressed, light on\n"));
    ASSERT_TRUE(log_.WaitForLine(kNotBreathing));
    Unplug();
    Plug();
    EXPECT_TRUE(log_.WaitForLine(kNotBreathing, 2));
    EXPECT_TRUE(
        WaitForLights("camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0"));
    Leave();
}

// The touchpad forgets the gesture; the library keeps it when it is closed in tablet mode.
TEST_F(RecoveringHost, LightsATouchpadThatWasUnpluggedWhileDisabled) {
    Plug();
    Start();
    ASSERT_TRUE(BecomesLit());
    touchpad_->SendEvent(kGesture);
    touchpad_->SendEvent(kDisabled);
    ASSERT_TRUE(log_.WaitForLine("for disabled"));
    Unplug();
    Plug();
    EXPECT_TRUE(WaitForLights(kit::kAllLit));
    Leave();
}

class RecoveringHostAfter : public RecoveringHost,
                            public testing::WithParamInterface<std::uint16_t> {};

INSTANTIATE_TEST_SUITE_P(, RecoveringHostAfter, testing::Values(kGesture, kDisabled),
                         [](const auto& test) {
                             return test.param == kGesture ? "Gesture" : "TabletMode";
                         });

TEST_P(RecoveringHostAfter, DoesNotBreatheOnWhatADisableEnded) {
    Plug();
    Start();
    ASSERT_TRUE(BecomesLit());
    touchpad_->SendEvent(GetParam());
    ASSERT_TRUE(log_.WaitForLine(GetParam() == kGesture ? "for GESTURE" : "for disabled"));
    Unplug();
    Plug();
    EXPECT_TRUE(log_.WaitForLine(kNotBreathing));
    EXPECT_TRUE(WaitForLights(kit::kAllLit));
    Leave();
}

TEST_F(RecoveringHost, OpensAgainAfterAResume) {
    Plug();
    Start();
    ASSERT_TRUE(BecomesLit());
    const auto outputs = [&] { return touchpad_->Device().State().outputCount; };
    const auto before = outputs();
    PostMessageW(Window(), WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
    EXPECT_TRUE(kit::WaitUntil([&] { return outputs() > before + 1; }));
    EXPECT_TRUE(BecomesLit());
    Leave();
    EXPECT_EQ(host_->Output(), "found\n");
}

TEST_F(RecoveringHost, TriesAgainUntilTheTouchpadCanBeOpened) {
    const std::filesystem::path vendors = log_.Path() / "Vela.ini";
    std::ofstream(vendors) << "[0001]\n";
    Plug();
    StartCopyWith("VelaAgent.dll");
    // Each try begins with an UnInit; the second one comes after the first has failed.
    ASSERT_TRUE(log_.WaitForLine("Uninitialize starts", 2));
    std::filesystem::remove(vendors);
    EXPECT_TRUE(BecomesLit());
    Leave();
}

class RecoveringHostOfAHeldTouchpad : public RecoveringHost,
                                      public testing::WithParamInterface<const wchar_t*> {};

// The results of Init: held from the first call on, or since the second.
INSTANTIATE_TEST_SUITE_P(, RecoveringHostOfAHeldTouchpad, testing::Values(L"3", L"23"));

TEST_P(RecoveringHostOfAHeldTouchpad, SaysOnceThatAnotherProgramHasIt) {
    const std::filesystem::path calls = log_.Path() / "calls";
    SetEnvironmentVariableW(L"VELA_STAND_IN_INIT", GetParam());
    SetEnvironmentVariableW(L"VELA_STAND_IN_INIT_CALLS", calls.c_str());
    StartCopyWith("velactl_stand_in.dll");
    // The fourth one comes after the third has been handled.
    ASSERT_TRUE(kit::WaitUntil([&] { return kit::FileText(calls).size() >= 4; }));
    Leave();
    EXPECT_EQ(host_->Output(), "held by another program\n");
}

}  // namespace
}  // namespace guide
