#include "tools/velactl/Command.h"

namespace velactl {

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands{
        {"devices", "List the machine's HID collections and which of them the agent chooses",
         DeclareDevices},
        {"caps", "List the capabilities that the agent knows of the chosen touchpad", DeclareCaps},
        {"status", "Tell whether the touchpad is there, is free, and what it says of itself",
         DeclareStatus},
        {"watch", "Open the touchpad and print presses and status changes until Ctrl+C",
         DeclareWatch},
        {"light", "Light the buttons and choose which of one button's two lights is lit",
         DeclareLight},
        {"visible", "Light the buttons and show or hide one", DeclareVisible},
        {"enable", "Light the buttons and enable or disable one", DeclareEnable},
        {"breathe", "Light the buttons and let the chat light breathe, or not", DeclareBreathe},
        {"brightness", "Light the buttons with this brightness", DeclareBrightness},
        {"clickmode", "Print the click mode, or set it", DeclareClickMode},
        {"haptic", "Print the haptic touchpad's intensity, or set it", DeclareHaptic},
        {"doctor", "Check what a working touchpad needs, and say what to do where it fails",
         DeclareDoctor},
        {"log", "Print the agent's log file", DeclareLog},
        {"record", "Record every HID collection of the machine in a file, for tests and support",
         DeclareRecord},
        {"report", "Write a text file for support, which begins with what is wrong", DeclareReport},
    };
    return commands;
}

}  // namespace velactl
