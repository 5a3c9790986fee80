#include "testing/parity/ExpectedTranscripts.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace parity {
namespace {

const std::filesystem::path kFolder = VELA_EXPECTED_TRANSCRIPTS;
constexpr char kExtension[] = ".txt";

}  // namespace

Transcript ExpectedTranscript(const std::string& descriptor) {
    std::ifstream file(kFolder / (descriptor + kExtension));
    std::ostringstream text;
    text << file.rdbuf();
    return FromText(text.str());
}

std::set<std::string> ExpectedTranscripts() {
    std::set<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(kFolder)) {
        names.insert(file.path().stem().string());
    }
    return names;
}

}  // namespace parity
