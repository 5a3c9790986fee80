#include "testing/kit/native/AgentLog.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>

#include "log/ILog.h"

namespace kit {

std::vector<LogLine> ReadLogLines(const std::filesystem::path& file) {
    static const std::regex form(
        R"(\[\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\] \{([A-Z]+)(?: @ ([^}]*))?\} (.*)\r)");
    std::vector<LogLine> lines;
    std::ifstream stream(file, std::ios::binary);
    for (std::string line; std::getline(stream, line);) {
        std::smatch match;
        if (std::regex_match(line, match, form)) {
            lines.push_back({match[1], match[2], match[3]});
        } else {
            ADD_FAILURE() << "not a log line: " << line;
        }
    }
    return lines;
}

AgentLog::AgentLog() { vela::GetLogger()->Initialize(Folder().wstring()); }

AgentLog::~AgentLog() { Finish(); }

void AgentLog::Finish() {
    if (!running_) return;
    vela::GetLogger()->UnInitialize();
    running_ = false;
}

std::vector<LogLine> AgentLog::Lines() {
    Finish();
    std::vector<LogLine> lines = ReadLogLines(File());
    if (!lines.empty() && lines.back().message == "Logger::UnInitialize") lines.pop_back();
    return lines;
}

std::vector<std::string> AgentLog::Texts() {
    std::vector<std::string> texts;
    for (const LogLine& line : Lines()) texts.push_back(line.Text());
    return texts;
}

std::vector<std::string> AgentLog::TextsOf(const std::string& function) {
    std::vector<std::string> texts;
    for (const LogLine& line : Lines()) {
        if (line.function == function) texts.push_back(line.Text());
    }
    return texts;
}

}  // namespace kit
