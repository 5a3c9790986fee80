// The example hosts, each in a process of its own, hold a meeting.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testing/acceptance/guide/HostTest.h"
#include "testing/acceptance/guide/Program.h"
#include "testing/kit/LogFolder.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/kit/windows/Lights.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace guide {
namespace {

using namespace virtual_touchpad::events;
using testing::HasSubstr;
using testing::StartsWith;
using virtual_touchpad::Lights;

// The example hosts take the same commands.
class ExampleHost : public HostTest {
 protected:
    std::wstring Argument() const { return L"\"" + log_.Path().wstring() + L"\""; }
    static bool IsCamera(const Lights& lights, bool isOn) {
        return lights.Brightness(isOn ? 0x20 : 0x21) == 200 && lights.Brightness(0x22) == 200;
    }
    static bool WaitForCamera(const virtual_touchpad::TouchpadControl& touchpad, bool isOn) {
        return WaitForLights(touchpad,
                             [=](const Lights& lights) { return IsCamera(lights, isOn); });
    }

    const kit::LogFolder log_;
};
class ExampleHosts : public ExampleHost, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(ExampleHosts, HoldAMeeting) {
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    virtual_touchpad::TouchpadControl touchpad;
    Program host(kit::ProgramFolder() / GetParam(), Argument());
    host.Type("join");
    EXPECT_THAT(host.Output("done join\n"), StartsWith("host: touchpad present\n"));
    EXPECT_TRUE(WaitForCamera(touchpad, false));
    touchpad.Press(kCameraButton);
    EXPECT_THAT(host.Output("to be on\n"), HasSubstr("callback: camera pressed"));
    EXPECT_TRUE(WaitForCamera(touchpad, true));
    host.Type("chat");
    EXPECT_TRUE(
        WaitForLights(touchpad, [](const Lights& lights) { return lights.breathing != 0; }));
    host.Type("read");
    EXPECT_TRUE(
        WaitForLights(touchpad, [](const Lights& lights) { return lights.breathing == 0; }));
    host.Type("leave");
    EXPECT_EQ(host.ExitCode(), 0U);
    EXPECT_TRUE(kit::AllDark(touchpad.CurrentLights()));
    EXPECT_EQ(log_.Lines().back(), "{INFO @ UnInitialize} Logger::UnInitialize");
}

INSTANTIATE_TEST_SUITE_P(, ExampleHosts, testing::Values(L"host.exe", L"watching_host.exe"));

TEST_F(ExampleHost, TheWatchingHostLightsATouchpadThatComesBack) {
    Program host(kit::ProgramFolder() / L"watching_host.exe", Argument());
    host.Type("join");
    host.Output("done join\n");
    ASSERT_TRUE(PlugUntilLit([](const Lights& lights) { return IsCamera(lights, false); }));
    virtual_touchpad::UnplugAll();
    EXPECT_THAT(host.Output("touchpad lost\n"), HasSubstr("callback: touchpad found\n"));
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    EXPECT_TRUE(WaitForCamera(virtual_touchpad::TouchpadControl(), false));
    host.Type("leave");
    EXPECT_EQ(host.ExitCode(), 0U);
}

// The library alone would end the process of a detachable touchpad with an exit code of its own.
TEST_F(ExampleHost, EndsWithItsOwnExitCode) {
    virtual_touchpad::TouchpadLayout detachable;
    detachable.productString = L"Vela Detachable Touchpad";
    for (const virtual_touchpad::TouchpadLayout& layout :
         {virtual_touchpad::TouchpadLayout{}, detachable}) {
        virtual_touchpad::Plug(layout);
        const Program host(kit::ProgramFolder() / L"ending_host.exe");
        EXPECT_EQ(host.ExitCode(), 42U);
        EXPECT_TRUE(kit::AllDark(virtual_touchpad::TouchpadControl().CurrentLights()));
        virtual_touchpad::UnplugAll();
    }
}

}  // namespace
}  // namespace guide
