// replay_recording FILE [OUT]: tells what of a recorded machine cannot be replayed, and writes the
// recording with the replay as what its test expects. scripts/add-recording runs it.
#include <fstream>
#include <iostream>

#include "testing/recording/Expectation.h"
#include "tools/recording/ReadableJson.h"

namespace {

int Run(const std::string& file, const char* out) {
    recording::Json machine = recording::Json::parse(std::ifstream(file));
    const std::vector<std::string> problems = recording::AddExpectation(machine);
    for (const std::string& problem : problems) std::cout << problem << std::endl;
    if (problems.empty()) std::cout << "everything was rebuilt" << std::endl;
    if (out != nullptr) {
        std::ofstream stream(out, std::ios::binary);
        stream << recording::ReadableJson(machine);
        stream.close();
        if (!stream) throw std::runtime_error(std::string("cannot write ") + out);
    }
    return problems.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 3) {
        std::cerr << "replay_recording FILE [OUT]" << std::endl;
        return 2;
    }
    try {
        return Run(argv[1], argc == 3 ? argv[2] : nullptr);
    } catch (const std::exception& error) {
        std::cerr << "replay_recording: " << error.what() << std::endl;
        return 2;
    }
}
