// The guide's example hosts, each in a process of its own, behave as the guide describes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testing/acceptance/guide/HostTest.h"
#include "testing/acceptance/guide/Program.h"
#include "testing/kit/Reports.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/kit/windows/Lights.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace guide {
namespace {

using namespace virtual_touchpad::events;
using testing::HasSubstr;
using virtual_touchpad::Lights;

using GuideExamples = HostTest;
class FirstHosts : public GuideExamples, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(FirstHosts, LightTheButtonsPrintAPressAndExit) {
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    virtual_touchpad::TouchpadControl touchpad;
    Program host(kit::ProgramFolder() / GetParam());
    EXPECT_THAT(host.Output("leaves\n"), HasSubstr("press a button of the touchpad"));
    EXPECT_TRUE(WaitForLights(touchpad, kit::AllFourLit));
    touchpad.Press(kCameraButton);
    EXPECT_THAT(host.Output("goes on\n"), HasSubstr("button 0 pressed, its light goes on\n"));
    EXPECT_TRUE(
        WaitForLights(touchpad, [](const Lights& lights) { return lights.Brightness(0x20) == 3; }));
    host.Type("");
    EXPECT_EQ(host.ExitCode(), 0U);
    EXPECT_EQ(touchpad.CurrentLights().Brightness(0x20), 0);
}

INSTANTIATE_TEST_SUITE_P(, FirstHosts,
                         testing::Values(L"guide_first_host.exe", L"guide_by_hand.exe"));

TEST_F(GuideExamples, TheFirstHostLightsATouchpadThatComesBack) {
    Program host(kit::ProgramFolder() / L"guide_first_host.exe");
    ASSERT_TRUE(kit::WaitForNotifiedWindow(L"VelaAgentWatch"));
    ASSERT_TRUE(PlugUntilLit(kit::AllFourLit));
    virtual_touchpad::UnplugAll();
    EXPECT_THAT(host.Output("gone\n"), HasSubstr("the touchpad is gone\n"));
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    const virtual_touchpad::TouchpadControl touchpad;
    EXPECT_TRUE(WaitForLights(touchpad, kit::AllFourLit));
}

TEST_F(GuideExamples, TheHostByHandSaysWhenThereIsNoTouchpad) {
    Program host(kit::ProgramFolder() / L"guide_by_hand.exe");
    EXPECT_EQ(host.ExitCode(), 1U);
    EXPECT_EQ(host.Output(), "no touchpad to open; VelaAgent.log says why\n");
}

TEST_F(GuideExamples, EveryCallDoesWhatTheGuideSays) {
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    virtual_touchpad::Plug(virtual_touchpad::SettingsOf(virtual_touchpad::HapticLayout{}),
                           L"haptic");
    Program host(kit::ProgramFolder() / L"guide_calls.exe");
    EXPECT_EQ(host.ExitCode(), 0U);
    EXPECT_EQ(host.Output(),
              "touchpad present\n"
              "open\n"
              "brightness 20, before 3\n"
              "click mode 1\n"
              "detachable 0, swipes both ways 1\n"
              "status 1\n"
              "status 5\n"
              "haptic level 80\n"
              "status 4\n"
              "status 4\n");
}

}  // namespace
}  // namespace guide
