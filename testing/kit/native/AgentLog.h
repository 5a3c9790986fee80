// "VelaAgent.log" of a test, in a folder of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "testing/kit/LogFolder.h"

namespace kit {

struct LogLine {
    std::string level;
    std::string function;
    std::string message;

    // "WARNING Initialize: text", the form that tests compare.
    std::string Text() const { return level + " " + function + ": " + message; }
};

// Starts the agent's logger in a new folder. Finish or the destructor stops it; the destructor
// removes the folder.
class AgentLog {
 public:
    AgentLog();
    ~AgentLog();
    AgentLog(const AgentLog&) = delete;
    AgentLog& operator=(const AgentLog&) = delete;

    // Stops the logger. Every line queued before is in the file afterwards.
    void Finish();
    // Returns the lines of the file without the closing "Logger::UnInitialize". Finishes first.
    std::vector<LogLine> Lines();
    std::vector<std::string> Texts();
    // Returns the texts of one function's lines.
    std::vector<std::string> TextsOf(const std::string& function);

    // Returns true once `count` lines contain the text.
    bool WaitForLine(const std::string& text, std::size_t count = 1) const {
        return folder_.WaitForLine(text, count);
    }
    const std::filesystem::path& Folder() const { return folder_.Path(); }
    std::filesystem::path File() const { return folder_.File(); }

 private:
    LogFolder folder_;
    bool running_ = true;
};

// Returns the parsed lines of a log file. A line in another form fails the test.
std::vector<LogLine> ReadLogLines(const std::filesystem::path& file);

}  // namespace kit
