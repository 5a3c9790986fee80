// record_touchpads FOLDER: records every known virtual touchpad with a meeting on it, a file each.
// scripts/add-recording makes tests of them.
#include <fstream>
#include <iostream>

#include "testing/unit/velactl/RecordedMeeting.h"
#include "testing/virtual-touchpad/plug/Plug.h"
#include "tools/recording/ReadableJson.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "record_touchpads FOLDER" << std::endl;
        return 2;
    }
    try {
        virtual_touchpad::UnplugAll();
        for (const virtual_touchpad::KnownLayout& known : virtual_touchpad::KnownLayouts()) {
            const std::filesystem::path file =
                std::filesystem::path(argv[1]) / (known.name + ".json");
            const auto machine = velactl_test::RecordWithMeeting(known.layout);
            std::ofstream(file, std::ios::binary) << recording::ReadableJson(machine);
            std::cout << known.name << std::endl;
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "record_touchpads: " << error.what() << std::endl;
        return 1;
    }
}
