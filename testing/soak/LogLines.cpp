#include "testing/soak/LogLines.h"

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <string_view>

namespace soak {
namespace {

constexpr std::string_view kTimeForm = "[dddd-dd-dd dd:dd:dd] {";
constexpr std::string_view kMarkText = "{INFO @ EnableButton} EnableButton button(";

bool HasTime(std::string_view line) {
    if (line.size() < kTimeForm.size()) return false;
    for (std::size_t i = 0; i < kTimeForm.size(); ++i) {
        const bool isDigit = std::isdigit(static_cast<unsigned char>(line[i])) != 0;
        if (kTimeForm[i] == 'd' ? !isDigit : line[i] != kTimeForm[i]) return false;
    }
    return true;
}

bool HasLevel(std::string_view rest) {
    for (const std::string_view level : {"ERROR", "WARNING", "INFO"}) {
        if (rest.substr(0, level.size()) != level) continue;
        rest.remove_prefix(level.size());
        return rest.substr(0, 2) == "} " || rest.substr(0, 3) == " @ ";
    }
    return false;
}

}  // namespace

bool IsLogLine(const std::string& line) {
    // A second time stamp means that two lines ran into each other.
    return HasTime(line) && HasLevel(std::string_view(line).substr(kTimeForm.size())) &&
           line.find("] {", kTimeForm.size()) == std::string::npos &&
           line.find("} ") != std::string::npos && line.back() == '\r';
}

void LogLines::Read(const std::filesystem::path& file, std::uintmax_t skipped) {
    std::ifstream stream(file, std::ios::binary);
    stream.seekg(static_cast<std::streamoff>(skipped));
    for (std::string line; std::getline(stream, line);) {
        ++count;
        if ((!IsLogLine(line) || stream.eof()) && torn.empty()) torn = "\"" + line + "\"";
        const std::size_t mark = line.find(kMarkText);
        if (mark == std::string::npos) continue;
        const char* const id = line.c_str() + mark + kMarkText.size();
        const auto buttonId = static_cast<std::uint32_t>(std::strtoul(id, nullptr, 10));
        if (!Mark::IsMark(buttonId)) continue;
        const Mark found = Mark::OfButtonId(buttonId);
        if (found.thread < marks.size()) marks[found.thread].push_back(found.number);
    }
}

}  // namespace soak
