#include "testing/kit/AgentLog.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>

#include "log/ILog.h"

namespace test_support {

std::filesystem::path MakeTemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vela-test-XXXXXX").string();
    const char* const folder = mkdtemp(pattern.data());
    if (folder == nullptr) throw std::runtime_error("no temporary folder: " + pattern);
    const std::filesystem::path log = std::filesystem::path(folder) / "log";
    std::filesystem::create_directory(log);
    return log;
}

std::filesystem::path LogFileIn(const std::filesystem::path& folder) {
    return folder.string() + "\\VelaAgent.log";
}

std::string FileText(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

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

AgentLog::AgentLog() : folder_(MakeTemporaryFolder()) {
    vela::GetLogger()->Initialize(folder_.wstring());
}

AgentLog::~AgentLog() {
    Finish();
    std::error_code ignored;
    std::filesystem::remove_all(folder_.parent_path(), ignored);
}

void AgentLog::Finish() {
    if (!running_) return;
    vela::GetLogger()->UnInitialize();
    running_ = false;
}

std::filesystem::path AgentLog::File() const { return LogFileIn(folder_); }

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

}  // namespace test_support
