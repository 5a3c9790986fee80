// The guide's example hosts, each in a process of its own, behave as the guide describes.
#include <gmock/gmock.h>

#include <windows.h>

#include <filesystem>

#include "testing/kit/Reports.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using namespace virtual_touchpad::events;
using testing::HasSubstr;
using virtual_touchpad::Lights;

constexpr std::chrono::seconds kPatience{20};

// A program with pipes for its input and output.
class Program {
 public:
    explicit Program(const wchar_t* name) {
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
        PROCESS_INFORMATION started{};
        EXPECT_TRUE(CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, TRUE, 0, nullptr,
                                   folder.c_str(), &startup, &started));
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

    void PressEnter() const {
        DWORD written = 0;
        WriteFile(input_, "\n", 1, &written, nullptr);
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
    host.PressEnter();
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

}  // namespace
