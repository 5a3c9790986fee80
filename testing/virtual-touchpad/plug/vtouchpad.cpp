// vtouchpad: plugs virtual touchpads in and out, presses their buttons and prints their lights.
#include <CLI/CLI.hpp>

#include <iostream>

#include "testing/virtual-touchpad/control/TouchpadControl.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using virtual_touchpad::HapticLayout;
using virtual_touchpad::TouchpadLayout;

std::wstring Widen(const std::string& text) {
    std::wstring wide;
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            throw std::runtime_error("names and product strings are ASCII on the command line");
        }
        wide += static_cast<wchar_t>(c);
    }
    return wide;
}

std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (const wchar_t c : text) narrow += c < 0x80 ? static_cast<char>(c) : '?';
    return narrow;
}

struct Arguments {
    std::string name = "touchpad";
    std::string product;
    std::string driverFolder;
};

struct TouchpadArguments : Arguments {
    bool noRequest = false;
    bool noFeature = false;
    TouchpadLayout layout;
};

// The names of the event usages on the command line.
const std::map<std::string, std::uint16_t> kEvents = {
    {"sync", 0x40},       {"camera", 0x41},  {"share-screen", 0x42}, {"chat", 0x43},
    {"microphone", 0x44}, {"gesture", 0x45}, {"enabled", 0x46},      {"disabled", 0x47}};

struct PressArguments : Arguments {
    std::vector<std::uint16_t> events;
};

struct HapticArguments : Arguments {
    bool noIntensity = false;
    HapticLayout layout;
};

void AddNameOption(CLI::App& command, Arguments& arguments) {
    command.add_option("--name", arguments.name, "Name of the device")->capture_default_str();
}

template <typename Layout>
void AddDeviceOptions(CLI::App& command, Arguments& arguments, Layout& layout) {
    AddNameOption(command, arguments);
    arguments.product = Narrow(layout.productString);
    command.add_option("--vid", layout.vendorId, "Vendor id (numbers may be hexadecimal: 0x0488)");
    command.add_option("--pid", layout.productId, "Product id");
    command.add_option("--version", layout.versionNumber, "Version number");
    command.add_option("--product", arguments.product, "Product string")->capture_default_str();
    command.add_option("--driver", arguments.driverFolder,
                       "Folder of the driver, \"virtual-touchpad\" beside this program by default");
}

void AddLayoutOptions(CLI::App& command, TouchpadArguments& arguments) {
    TouchpadLayout& layout = arguments.layout;
    command.add_option("--usage-page", layout.usagePage, "Usage page of the collection");
    command.add_option("--usage", layout.usage, "Usage of the collection");
    command.add_option("--input-report-id", layout.inputReportIds, "Ids of the input reports");
    command.add_option("--request-report-id", layout.requestReportId, "Id of the state request");
    command.add_flag("--no-request", arguments.noRequest, "Without the state request");
    command.add_flag("--no-feature", arguments.noFeature, "Without the feature report");
    command.add_flag("--active-array", layout.activeUsagesAsArray,
                     "Active usages as an array instead of bits");
    command.add_option("--missing-light", layout.missingLightUsages,
                       "Light usages that the touchpad does not have");
}

void Plug(const Arguments& arguments, virtual_touchpad::DeviceSettings settings) {
    settings.productString = Widen(arguments.product);
    const std::filesystem::path folder = arguments.driverFolder.empty()
                                             ? virtual_touchpad::DefaultDriverFolder()
                                             : std::filesystem::path(arguments.driverFolder);
    std::cout << Narrow(virtual_touchpad::Plug(settings, Widen(arguments.name), folder))
              << std::endl;
}

void Plug(TouchpadArguments& arguments) {
    arguments.layout.hasRequest = !arguments.noRequest;
    arguments.layout.hasFeatureReport = !arguments.noFeature;
    Plug(arguments, virtual_touchpad::SettingsOf(arguments.layout));
}

void Plug(HapticArguments& arguments) {
    arguments.layout.hasIntensity = !arguments.noIntensity;
    Plug(arguments, virtual_touchpad::SettingsOf(arguments.layout));
}

void List() {
    for (const virtual_touchpad::PluggedDevice& device : virtual_touchpad::PluggedDevices()) {
        std::cout << Narrow(device.name) << '\t'
                  << (device.hidPath.empty() ? "(no HID interface)" : Narrow(device.hidPath))
                  << std::endl;
    }
}

void Press(const PressArguments& arguments) {
    virtual_touchpad::TouchpadControl touchpad(Widen(arguments.name));
    for (const std::uint16_t event : arguments.events) touchpad.SendEvent(event);
}

// The lights of a button; with two of them, the one for on comes first.
struct LightNames {
    const char* name;
    std::uint16_t active;
    std::vector<std::uint16_t> lights;
};

void ShowLights(const Arguments& arguments) {
    const LightNames buttons[] = {{"camera", 0x01, {0x20, 0x21}},
                                  {"microphone", 0x04, {0x26, 0x27}},
                                  {"chat", 0x03, {0x24}},
                                  {"share-screen", 0x02, {0x22}}};
    const virtual_touchpad::Lights lights =
        virtual_touchpad::TouchpadControl(Widen(arguments.name)).CurrentLights();
    for (const LightNames& button : buttons) {
        std::cout << button.name;
        for (const std::uint16_t light : button.lights) {
            std::cout << '\t' << static_cast<int>(lights.Brightness(light));
        }
        std::cout << (lights.IsActive(button.active) ? "\tactive" : "\tinactive") << std::endl;
    }
    std::cout << "breathing\t" << static_cast<int>(lights.breathing) << std::endl;
}

}  // namespace

// Exceptions of the argument set-up are mistakes in it, which the first run reveals.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
    TouchpadArguments touchpad;
    HapticArguments haptic;
    haptic.name = "haptic";
    Arguments unplugged;
    PressArguments pressed;
    Arguments shown;
    CLI::App app{"Plugs virtual touchpads in and out, presses their buttons, tells their lights.",
                 "vtouchpad"};
    app.require_subcommand(1);
    CLI::App* plug = app.add_subcommand(
        "plug", "Plug a touchpad in and print its HID path; installs the driver on first use");
    AddDeviceOptions(*plug, touchpad, touchpad.layout);
    AddLayoutOptions(*plug, touchpad);
    CLI::App* plugHaptic =
        app.add_subcommand("plug-haptic", "The same for a haptic touchpad, which has no buttons");
    AddDeviceOptions(*plugHaptic, haptic, haptic.layout);
    plugHaptic->add_flag("--no-intensity", haptic.noIntensity, "Without an intensity to set");
    CLI::App* unplug = app.add_subcommand("unplug", "Unplug a touchpad");
    AddNameOption(*unplug, unplugged);
    CLI::App* press = app.add_subcommand(
        "press", "Press buttons, or make what else a touchpad reports, one report each");
    AddNameOption(*press, pressed);
    press->add_option("events", pressed.events, "What happens, in order")
        ->required()
        ->transform(CLI::CheckedTransformer(kEvents));
    CLI::App* lights = app.add_subcommand(
        "lights",
        "Print the lights of the last report: button, tab, brightness (camera and "
        "microphone: of the light for on, then of the one for off), tab, active");
    AddNameOption(*lights, shown);
    app.add_subcommand("list", "Print the plugged touchpads: name, tab, HID path");
    CLI11_PARSE(app, argc, argv);
    try {
        if (plug->parsed()) {
            Plug(touchpad);
        } else if (plugHaptic->parsed()) {
            Plug(haptic);
        } else if (unplug->parsed()) {
            virtual_touchpad::Unplug(Widen(unplugged.name));
        } else if (press->parsed()) {
            Press(pressed);
        } else if (lights->parsed()) {
            ShowLights(shown);
        } else {
            List();
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "vtouchpad: " << error.what() << std::endl;
        return 1;
    }
}
