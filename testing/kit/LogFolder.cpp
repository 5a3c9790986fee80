#include "testing/kit/LogFolder.h"

#include <regex>
#include <sstream>
#include <stdexcept>

namespace kit {

std::filesystem::path LogFileIn(const std::filesystem::path& directory) {
    return directory.string() + "\\VelaAgent.log";
}

LogFolder::LogFolder() : directory_(folder_.Path() / "log") {
    std::filesystem::create_directory(directory_);
}

std::vector<std::string> LogFolder::Lines() const {
    static const std::regex form(R"(\[\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\] (\{.*)\r)");
    std::vector<std::string> lines;
    std::istringstream stream(Text());
    for (std::string line; std::getline(stream, line);) {
        std::smatch match;
        if (!std::regex_match(line, match, form)) {
            throw std::runtime_error("not a log line: " + line);
        }
        lines.push_back(match[1]);
    }
    return lines;
}

std::size_t LogFolder::CountLines(const std::string& text) const {
    std::size_t count = 0;
    std::istringstream stream(Text());
    for (std::string line; std::getline(stream, line);) {
        if (line.find(text) != std::string::npos) ++count;
    }
    return count;
}

bool LogFolder::WaitForLine(const std::string& text, std::size_t count,
                            std::chrono::seconds patience) const {
    return WaitUntil([&] { return CountLines(text) >= count; }, patience);
}

}  // namespace kit
