// Plays a short meeting: starts an example host, acts as the user of the virtual touchpad, and
// prints after each event the host's callbacks and the touchpad's lights. Halfway the touchpad is
// unplugged and plugged in again. A haptic touchpad is plugged in as well; the host increases its
// feedback before the meeting.
//
//   meeting HOST LOGDIRECTORY [PANEL PICTURES]
//
// With a panel (velapanel.exe) the buttons are pressed there, and each event saves a picture of the
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
#include "tools/velapanel/DeviceWatch.h"

namespace demo {
namespace {

using velapanel::Action;
using velapanel::DeviceWatch;
using virtual_touchpad::HapticsReport;
using virtual_touchpad::Lights;
using virtual_touchpad::VirtualDevice;

constexpr std::chrono::seconds kTimeout{10};

// Returns what a person sees.
LightState Look(DeviceWatch& device) {
    device.Refresh();
    const Lights& lights = device.State().lights;
    return {device.State().isPlugged, lights.Brightness(0x21), lights.Brightness(0x20),
            lights.Brightness(0x27),  lights.Brightness(0x26), lights.Brightness(0x24),
            lights.Brightness(0x22),  lights.breathing};
}

// Presses a button like a user, or pulls the plug and puts it back.
using Press = std::function<void(Action)>;

struct Event {
    const char* name;
    const char* title;
    std::function<void(HostProcess&, const Press&)> happen;
    std::size_t messages;                        // the number of callbacks that the host receives
    std::function<bool(const LightState&)> lit;  // whether the lights are as expected
};

const std::vector<Event>& Meeting() {
    static const std::vector<Event> meeting{
        {"joined", "The meeting begins: the host opens the touchpad and lights its buttons",
         [](HostProcess& host, const Press&) { host.Send("join"); }, 2,
         [](const LightState& lights) { return lights.cameraOff && lights.shareScreen; }},
        {"camera", "The person presses the camera button",
         [](HostProcess&, const Press& press) { press(Action::Camera); }, 1,
         [](const LightState& lights) { return lights.cameraOn && !lights.cameraOff; }},
        {"microphone", "The person presses the microphone button",
         [](HostProcess&, const Press& press) { press(Action::Microphone); }, 1,
         [](const LightState& lights) { return lights.microphoneOn && !lights.microphoneOff; }},
        {"unplugged", "Somebody pulls the touchpad's plug",
         [](HostProcess&, const Press& press) { press(Action::Plug); }, 1,
         [](const LightState& lights) { return !lights.isPluggedIn; }},
        {"plugged-in", "The touchpad is plugged in again: the host's watch lights it as it was",
         [](HostProcess&, const Press& press) { press(Action::Plug); }, 2,
         [](const LightState& lights) {
             return lights.cameraOn && lights.microphoneOn && lights.chat && lights.shareScreen;
         }},
        {"chat-message", "A chat message arrives: the chat light breathes",
         [](HostProcess& host, const Press&) { host.Send("chat"); }, 0,
         [](const LightState& lights) { return lights.breathing != 0; }},
        {"chat", "The person presses the chat button; the host opens the chat",
         [](HostProcess& host, const Press& press) {
             press(Action::Chat);
             host.Send("read");
         },
         1, [](const LightState& lights) { return lights.breathing == 0; }},
        {"gesture", "A gesture on the touchpad disables the buttons for a while",
         [](HostProcess&, const Press& press) { press(Action::Gesture); }, 1,
         [](const LightState&) { return true; }},
        {"sync", "The touchpad is back (SYNC)",
         [](HostProcess&, const Press& press) { press(Action::Sync); }, 1,
         [](const LightState& lights) { return lights.cameraOn != 0; }},
        {"left", "The meeting ends: the host leaves",
         [](HostProcess& host, const Press&) { host.Send("leave"); }, 0,
         [](const LightState& lights) { return !lights.cameraOn && !lights.shareScreen; }},
    };
    return meeting;
}

LightState WaitForLights(DeviceWatch& device, const std::function<bool(const LightState&)>& lit) {
    const auto deadline = std::chrono::steady_clock::now() + kTimeout;
    while (std::chrono::steady_clock::now() < deadline) {
        const LightState lights = Look(device);
        if (lit(lights)) return lights;
        Sleep(20);
    }
    throw std::runtime_error("the lights did not change as they should have");
}

void PrintMessages(HostProcess& host, std::size_t count) {
    for (const std::string& message : host.TakeMessages(count)) {
        std::printf("    host: %s\n", message.c_str());
    }
}

// The intensity is one of the four fields of a report; the host sets only that one.
void MakeFeedbackStronger(HostProcess& host, VirtualDevice& haptic) {
    virtual_touchpad::HapticFields fields{9, 50, 17, 200};
    haptic.SetFeature(HapticsReport(fields));
    std::printf("\nThe host makes the haptic touchpad's feedback stronger\n");
    host.Send("haptic 80");
    PrintMessages(host, 2);
    fields.intensity = 80;
    if (haptic.Feature(virtual_touchpad::kHapticsReportId) != HapticsReport(fields)) {
        throw std::runtime_error("the haptic touchpad's report is not as it should be");
    }
    std::printf("%s", HapticPicture(fields.intensity).c_str());
}

// Calls `afterwards` when the lights have the state that the event leads to.
void Play(HostProcess& host, DeviceWatch& device, const Press& press,
          const std::function<void(const Event&)>& afterwards) {
    for (const Event& event : Meeting()) {
        std::printf("\n%s\n", event.title);
        event.happen(host, press);
        PrintMessages(host, event.messages);
        std::printf("%s", Picture(WaitForLights(device, event.lit)).c_str());
        std::fflush(stdout);
        afterwards(event);
    }
}

void PlayWithoutPanel(HostProcess& host) {
    DeviceWatch device;
    Play(
        host, device, [&](Action action) { device.Do(action); }, [](const Event&) {});
}

void PlayAtPanel(HostProcess& host, const std::filesystem::path& program,
                 const std::filesystem::path& pictures) {
    DeviceWatch device;
    PanelProcess panel(program);
    int number = 0;
    Play(
        host, device, [&](Action action) { panel.Press(action); },
        [&](const Event& event) {
            const std::string digits = std::to_string(++number);
            panel.SavePicture(pictures / (std::string(2 - digits.size(), '0') + digits + "-" +
                                          event.name + ".png"));
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
