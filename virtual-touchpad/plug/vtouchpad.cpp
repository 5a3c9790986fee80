// vtouchpad: plugs virtual touchpads into this machine and out of it.
#include <CLI/CLI.hpp>

#include <iostream>

#include "virtual-touchpad/plug/Plug.h"

namespace {

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
    std::string product = Narrow(TouchpadLayout{}.productString);
    std::string driverFolder;
    bool noRequest = false;
    bool noFeature = false;
    TouchpadLayout layout;
};

void AddNameOption(CLI::App& command, Arguments& arguments) {
    command.add_option("--name", arguments.name, "Name of the device")->capture_default_str();
}

void AddLayoutOptions(CLI::App& command, Arguments& arguments) {
    TouchpadLayout& layout = arguments.layout;
    command.add_option("--vid", layout.vendorId, "Vendor id (numbers may be hexadecimal: 0x0488)");
    command.add_option("--pid", layout.productId, "Product id");
    command.add_option("--version", layout.versionNumber, "Version number");
    command.add_option("--product", arguments.product, "Product string")->capture_default_str();
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
    command.add_option("--driver", arguments.driverFolder,
                       "Folder of the driver, \"virtual-touchpad\" beside this program by default");
}

void Plug(Arguments& arguments) {
    arguments.layout.productString = Widen(arguments.product);
    arguments.layout.hasRequest = !arguments.noRequest;
    arguments.layout.hasFeatureReport = !arguments.noFeature;
    const std::filesystem::path folder = arguments.driverFolder.empty()
                                             ? virtual_touchpad::DefaultDriverFolder()
                                             : std::filesystem::path(arguments.driverFolder);
    const std::wstring path =
        virtual_touchpad::Plug(arguments.layout, Widen(arguments.name), folder);
    std::cout << Narrow(path) << std::endl;
}

void List() {
    for (const virtual_touchpad::PluggedDevice& device : virtual_touchpad::PluggedDevices()) {
        std::cout << Narrow(device.name) << '\t'
                  << (device.hidPath.empty() ? "(no HID interface)" : Narrow(device.hidPath))
                  << std::endl;
    }
}

}  // namespace

int main(int argc, char** argv) {
    Arguments arguments;
    CLI::App app{"Plugs virtual touchpads into this machine and out of it.", "vtouchpad"};
    app.require_subcommand(1);
    CLI::App* plug = app.add_subcommand(
        "plug", "Plug a touchpad in and print its HID path; installs the driver on first use");
    AddNameOption(*plug, arguments);
    AddLayoutOptions(*plug, arguments);
    CLI::App* unplug = app.add_subcommand("unplug", "Unplug a touchpad");
    AddNameOption(*unplug, arguments);
    app.add_subcommand("list", "Print the plugged touchpads: name, tab, HID path");
    CLI11_PARSE(app, argc, argv);
    try {
        if (plug->parsed()) {
            Plug(arguments);
        } else if (unplug->parsed()) {
            virtual_touchpad::Unplug(Widen(arguments.name));
        } else {
            List();
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "vtouchpad: " << error.what() << std::endl;
        return 1;
    }
}
