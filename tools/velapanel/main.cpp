// velapanel: the virtual touchpad as a picture. The user can press its buttons and unplug it; its
// lights show what a host sends.
#include <CLI/CLI.hpp>

#include <iostream>

#include "tools/velapanel/PanelWindow.h"
#include "tools/velapanel/Snapshot.h"

namespace {

int Run(int argc, char** argv) {
    std::string touchpad = "touchpad";
    std::string haptic = "haptic";
    std::string picture;
    std::vector<int> size{960, 720};
    CLI::App app{"Shows the virtual touchpad: its lights, its buttons, its latest reports.",
                 "velapanel"};
    app.add_option("--name", touchpad, "Name of the touchpad")->capture_default_str();
    app.add_option("--haptic", haptic, "Name of the haptic touchpad")->capture_default_str();
    app.add_option("--picture", picture, "Draw the panel into this PNG file instead of a window");
    app.add_option("--size", size, "Width and height of the picture")
        ->expected(2)
        ->check(CLI::Range(1, 8192))
        ->capture_default_str();
    CLI11_PARSE(app, argc, argv);
    const velapanel::GdiPlusSession gdiPlus;
    velapanel::DeviceWatch watch(std::wstring(touchpad.begin(), touchpad.end()),
                                 std::wstring(haptic.begin(), haptic.end()));
    watch.Refresh();
    if (picture.empty()) {
        velapanel::PanelWindow(watch).Run();
    } else {
        velapanel::SavePicture({watch.State(), 0, {}, {}}, size[0], size[1], picture);
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "velapanel: " << error.what() << std::endl;
        return 1;
    }
}
