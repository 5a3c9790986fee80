#include "testing/acceptance/AgentLogFile.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>
#include <regex>
#include <sstream>

namespace acceptance {

LogFolder::LogFolder() {
    // Several of one test are made within one tick of the clock.
    static int count = 0;
    path_ = std::filesystem::temp_directory_path() /
            ("vela-" + std::to_string(GetCurrentProcessId()) + "-" +
             std::to_string(GetTickCount64()) + "-" + std::to_string(++count));
    std::filesystem::create_directories(path_);
}

LogFolder::~LogFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string LogFolder::Text() const {
    std::ifstream stream(File(), std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

std::vector<std::string> LogFolder::Lines() const {
    static const std::regex form(R"(\[\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\] (\{.*)\r)");
    std::vector<std::string> lines;
    std::istringstream stream(Text());
    for (std::string line; std::getline(stream, line);) {
        std::smatch match;
        if (std::regex_match(line, match, form)) {
            lines.push_back(match[1]);
        } else {
            ADD_FAILURE() << "not a log line: " << line;
        }
    }
    return lines;
}

}  // namespace acceptance
