// record_touchpads FOLDER: records every known virtual touchpad with a meeting on it, a file each.
// scripts/add-recording makes tests of them.
#include <fstream>
#include <iostream>

#include "testing/unit/velactl/RecordedMeeting.h"
#include "testing/virtual-touchpad/plug/Plug.h"
#include "tools/recording/ReadableJson.h"

namespace {

using velactl_test::RecordWithLevel;
using velactl_test::RecordWithMeeting;

void Write(const std::filesystem::path& folder, const std::string& name,
           const nlohmann::ordered_json& machine) {
    std::ofstream(folder / (name + ".json"), std::ios::binary) << recording::ReadableJson(machine);
    std::cout << name << std::endl;
}

void RecordAll(const std::filesystem::path& folder) {
    virtual_touchpad::UnplugAll();
    for (const virtual_touchpad::KnownLayout& known : virtual_touchpad::KnownLayouts()) {
        Write(folder, known.name, RecordWithMeeting(known.layout));
    }
    virtual_touchpad::HapticLayout haptic;
    Write(folder, "Haptic", RecordWithLevel(haptic));
    haptic.hasIntensity = false;
    Write(folder, "HapticWithoutIntensity", RecordWithLevel(haptic));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "record_touchpads FOLDER" << std::endl;
        return 2;
    }
    try {
        RecordAll(argv[1]);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "record_touchpads: " << error.what() << std::endl;
        return 1;
    }
}
