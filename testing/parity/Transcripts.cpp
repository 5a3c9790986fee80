// Writes the transcript of every descriptor into a folder, a file each: the simulator's in a native
// build, the system's in a Windows build.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "testing/parity/RecordTranscript.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: parity_transcripts FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    for (const parity::Descriptor& descriptor : parity::AllDescriptors()) {
        std::ofstream file(folder / (descriptor.name + ".txt"), std::ios::binary);
        file << parity::ToText(parity::RecordTranscript(descriptor));
        if (!file.flush()) {
            std::cerr << "cannot write the transcript of " << descriptor.name << "\n";
            return 1;
        }
    }
    return 0;
}
