// The guide's examples and the example hosts, each in a process of its own, behave as described.
#include <gmock/gmock.h>

#include <windows.h>

#include <filesystem>

#include "testing/kit/LogFolder.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/kit/windows/Lights.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using namespace virtual_touchpad::events;
using testing::HasSubstr;
using testing::StartsWith;
using virtual_touchpad::Lights;

constexpr std::chrono::seconds kPatience{20};

// A program with pipes for its input and output.
class Program {
 public:
    explicit Program(const wchar_t* name, const std::wstring& argument = L"") {
        SECURITY_ATTRIBUTES inheritable{sizeof(inheritable), nullptr, TRUE};
        HANDLE childInput = nullptr;
        HANDLE childOutput = nullptr;
        CreatePipe(&childInput, &input_, &inheritable, 0);
        CreatePipe(&output_, &childOutput, &inheritable, 0);
        SetHandleInformation(input_, HANDLE_FLAG_INHERIT, 0);
        SetHandleInformation(output_, HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = childInput;
        startup.hStdOutput = childOutput;
        const std::filesystem::path program = kit::ProgramFolder() / name;
        const std::filesystem::path folder = std::filesystem::temp_directory_path();
        std::wstring commandLine = L"\"" + program.wstring() + L"\" \"" + argument + L"\"";
        PROCESS_INFORMATION started{};
        EXPECT_TRUE(CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0,
                                   nullptr, folder.c_str(), &startup, &started));
        CloseHandle(childInput);
        CloseHandle(childOutput);
        CloseHandle(started.hThread);
        process_ = started.hProcess;
    }
    ~Program() {
        TerminateProcess(process_, 99);
        for (const HANDLE handle : {process_, input_, output_}) CloseHandle(handle);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void Type(const std::string& line) const {
        const std::string keys = line + "\n";
        DWORD written = 0;
        WriteFile(input_, keys.data(), static_cast<DWORD>(keys.size()), &written, nullptr);
    }
    // Returns the program's output up to and including `last`, or up to its end.
    std::string Output(const std::string& last = "\1") {
        char character = 0;
        DWORD read = 0;
        while (text_.find(last) == std::string::npos &&
               ReadFile(output_, &character, 1, &read, nullptr) && read == 1) {
            if (character != '\r') text_ += character;
        }
        return text_;
    }
    DWORD ExitCode() const {
        WaitForSingleObject(process_, INFINITE);
        DWORD code = 0;
        GetExitCodeProcess(process_, &code);
        return code;
    }

 private:
    HANDLE process_ = nullptr;
    HANDLE input_ = nullptr;
    HANDLE output_ = nullptr;
    std::string text_;
};

class GuideExamples : public testing::Test {
 protected:
    GuideExamples() { virtual_touchpad::UnplugAll(); }
    ~GuideExamples() override { virtual_touchpad::UnplugAll(); }

    static bool WaitForLights(const virtual_touchpad::TouchpadControl& touchpad,
                              const std::function<bool(const Lights&)>& wanted) {
        return touchpad.Device().WaitForState(
            [&](const VirtualHidState&) { return wanted(touchpad.CurrentLights()); }, kPatience);
    }
};

TEST_F(GuideExamples, TheFirstHostLightsTheButtonsPrintsAPressAndExits) {
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    virtual_touchpad::TouchpadControl touchpad;
    Program host(L"guide_first_host.exe");
    EXPECT_THAT(host.Output("leaves\n"), HasSubstr("press a button of the touchpad"));
    EXPECT_TRUE(WaitForLights(touchpad, [](const Lights& lights) {
        return lights.Brightness(0x21) == 3 && lights.Brightness(0x27) == 3 &&
               lights.Brightness(0x24) == 3 && lights.Brightness(0x22) == 3;
    }));
    touchpad.Press(kCameraButton);
    EXPECT_THAT(host.Output("goes on\n"), HasSubstr("button 0 pressed, its light goes on\n"));
    EXPECT_TRUE(
        WaitForLights(touchpad, [](const Lights& lights) { return lights.Brightness(0x20) == 3; }));
    host.Type("");
    EXPECT_EQ(host.ExitCode(), 0U);
    EXPECT_EQ(touchpad.CurrentLights().Brightness(0x20), 0);
}

TEST_F(GuideExamples, TheFirstHostSaysWhenThereIsNoTouchpad) {
    Program host(L"guide_first_host.exe");
    EXPECT_EQ(host.ExitCode(), 1U);
    EXPECT_EQ(host.Output(), "no touchpad to open; VelaAgent.log says why\n");
}

TEST_F(GuideExamples, EveryCallDoesWhatTheGuideSays) {
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    virtual_touchpad::Plug(virtual_touchpad::SettingsOf(virtual_touchpad::HapticLayout{}),
                           L"haptic");
    Program host(L"guide_calls.exe");
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

// The example hosts take the same commands.
class ExampleHost : public GuideExamples {
 protected:
    static bool WaitForCamera(const virtual_touchpad::TouchpadControl& touchpad, bool isOn) {
        return WaitForLights(touchpad, [=](const Lights& lights) {
            return lights.Brightness(isOn ? 0x20 : 0x21) == 200 && lights.Brightness(0x22) == 200;
        });
    }

    const kit::LogFolder log_;
};
class ExampleHosts : public ExampleHost, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(ExampleHosts, HoldAMeeting) {
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    virtual_touchpad::TouchpadControl touchpad;
    Program host(GetParam(), log_.Path().wstring());
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
    Program host(L"watching_host.exe", log_.Path().wstring());
    host.Type("join");
    host.Output("done join\n");
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    EXPECT_TRUE(WaitForCamera(virtual_touchpad::TouchpadControl(), false));
    virtual_touchpad::UnplugAll();
    EXPECT_THAT(host.Output("touchpad lost\n"), HasSubstr("callback: touchpad found\n"));
    virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    EXPECT_TRUE(WaitForCamera(virtual_touchpad::TouchpadControl(), false));
    host.Type("leave");
    EXPECT_EQ(host.ExitCode(), 0U);
}

}  // namespace
