// Plays a short meeting: starts the example host, is the person in front of the virtual touchpad,
// and shows after each event what the host was told and what the touchpad's lights show. A haptic
// touchpad is there as well; its feedback is made stronger before the meeting.
//
//   meeting HOST LOGDIRECTORY [PANEL PICTURES]
//
// With a panel (velapanel.exe) the person presses there, and each event leaves a picture of the
// panel's window in the folder PICTURES.
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "examples/demo/HostProcess.h"
#include "examples/demo/PanelProcess.h"
#include "examples/demo/Picture.h"
#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/descriptor/HapticLayout.h"

namespace demo {
namespace {

using velapanel::Action;
using virtual_touchpad::HapticsReport;
using virtual_touchpad::Lights;
using virtual_touchpad::TouchpadControl;
using virtual_touchpad::VirtualDevice;

constexpr std::chrono::seconds kPatience{10};

LightState StateOf(const Lights& lights) {
    return {lights.Brightness(0x21), lights.Brightness(0x20), lights.Brightness(0x27),
            lights.Brightness(0x26), lights.Brightness(0x24), lights.Brightness(0x22),
            lights.breathing};
}

// What the person does.
using Press = std::function<void(Action)>;

struct Event {
    const char* name;
    const char* title;
    std::function<void(HostProcess&, const Press&)> happen;
    std::size_t told;                            // lines: the callbacks that the host is to get
    std::function<bool(const LightState&)> lit;  // how the lights are to end up
};

const std::vector<Event>& Meeting() {
    static const std::vector<Event> meeting{
        {"joined", "The meeting begins: the host opens the touchpad and lights its buttons",
         [](HostProcess& host, const Press&) { host.Tell("join"); }, 1,
         [](const LightState& lights) { return lights.cameraOff && lights.shareScreen; }},
        {"camera", "The person presses the camera button",
         [](HostProcess&, const Press& press) { press(Action::Camera); }, 1,
         [](const LightState& lights) { return lights.cameraOn && !lights.cameraOff; }},
        {"microphone", "The person presses the microphone button",
         [](HostProcess&, const Press& press) { press(Action::Microphone); }, 1,
         [](const LightState& lights) { return lights.microphoneOn && !lights.microphoneOff; }},
        {"chat-message", "A chat message arrives: the chat light breathes",
         [](HostProcess& host, const Press&) { host.Tell("chat"); }, 0,
         [](const LightState& lights) { return lights.breathing != 0; }},
        {"chat", "The person presses the chat button; the host opens the chat",
         [](HostProcess& host, const Press& press) {
             press(Action::Chat);
             host.Tell("read");
         },
         1, [](const LightState& lights) { return lights.breathing == 0; }},
        {"gesture", "A gesture on the touchpad disables the buttons for a while",
         [](HostProcess&, const Press& press) { press(Action::Gesture); }, 1,
         [](const LightState&) { return true; }},
        {"sync", "The touchpad is back (SYNC)",
         [](HostProcess&, const Press& press) { press(Action::Sync); }, 1,
         [](const LightState& lights) { return lights.cameraOn != 0; }},
        {"left", "The meeting ends: the host leaves",
         [](HostProcess& host, const Press&) { host.Tell("leave"); }, 2,
         [](const LightState& lights) { return !lights.cameraOn && !lights.shareScreen; }},
    };
    return meeting;
}

LightState WaitForLights(const TouchpadControl& touchpad,
                         const std::function<bool(const LightState&)>& lit) {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < deadline) {
        const LightState lights = StateOf(touchpad.CurrentLights());
        if (lit(lights)) return lights;
        Sleep(20);
    }
    throw std::runtime_error("the lights did not change as they should have");
}

void PrintTold(HostProcess& host, std::size_t count) {
    for (const std::string& told : host.Told(count)) std::printf("    host: %s\n", told.c_str());
}

// The intensity is one of the four fields of a report; the host sets that one only.
void MakeFeedbackStronger(HostProcess& host, VirtualDevice& haptic) {
    virtual_touchpad::HapticFields fields{9, 50, 17, 200};
    haptic.SetFeature(HapticsReport(fields));
    std::printf("\nThe host makes the haptic touchpad's feedback stronger\n");
    host.Tell("haptic 80");
    PrintTold(host, 2);
    fields.intensity = 80;
    if (haptic.Feature(virtual_touchpad::kHapticsReportId) != HapticsReport(fields)) {
        throw std::runtime_error("the haptic touchpad's report is not as it should be");
    }
    std::printf("%s", HapticPicture(fields.intensity).c_str());
}

// afterwards: once the lights are as the event leaves them.
void Play(HostProcess& host, const TouchpadControl& touchpad, const Press& press,
          const std::function<void(const Event&)>& afterwards) {
    for (const Event& event : Meeting()) {
        std::printf("\n%s\n", event.title);
        event.happen(host, press);
        PrintTold(host, event.told);
        std::printf("%s", Picture(WaitForLights(touchpad, event.lit)).c_str());
        std::fflush(stdout);
        afterwards(event);
    }
}

void PlayWithoutPanel(HostProcess& host) {
    TouchpadControl touchpad;
    const Press press = [&](Action action) {
        touchpad.SendEvent(velapanel::kActions[static_cast<std::size_t>(action)].eventUsage);
    };
    Play(host, touchpad, press, [](const Event&) {});
}

void PlayAtPanel(HostProcess& host, const std::filesystem::path& program,
                 const std::filesystem::path& pictures) {
    const TouchpadControl touchpad;
    PanelProcess panel(program);
    int number = 0;
    Play(
        host, touchpad, [&](Action action) { panel.Press(action); },
        [&](const Event& event) {
            panel.SavePicture(pictures / (std::to_string(++number) + "-" + event.name + ".png"));
        });
}

}  // namespace
}  // namespace demo

int wmain(int argc, wchar_t** argv) {
    if (argc != 3 && argc != 5) {
        std::fprintf(stderr, "usage: meeting HOST LOGDIRECTORY [PANEL PICTURES]\n");
        return 2;
    }
    try {
        virtual_touchpad::VirtualDevice haptic(L"haptic");
        demo::HostProcess host(argv[1], argv[2]);
        demo::MakeFeedbackStronger(host, haptic);
        if (argc == 5) {
            demo::PlayAtPanel(host, argv[3], argv[4]);
        } else {
            demo::PlayWithoutPanel(host);
        }
        return static_cast<int>(host.Wait());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "meeting: %s\n", error.what());
        return 1;
    }
}
