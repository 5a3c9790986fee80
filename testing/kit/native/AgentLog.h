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

// Starts the agent's logger in a new folder, and stops it with Finish or the destructor, which
// removes the folder.
class AgentLog {
 public:
    AgentLog();
    ~AgentLog();
    AgentLog(const AgentLog&) = delete;
    AgentLog& operator=(const AgentLog&) = delete;

    // Stops the logger: from then on every line queued before is in the file.
    void Finish();
    // The lines of the file, without the closing "Logger::UnInitialize". Finishes first.
    std::vector<LogLine> Lines();
    std::vector<std::string> Texts();
    // Texts of the lines of one function.
    std::vector<std::string> TextsOf(const std::string& function);

    // Returns true once the file has that many lines with this text.
    bool WaitForLine(const std::string& text, std::size_t count = 1) const {
        return folder_.WaitForLine(text, count);
    }
    const std::filesystem::path& Folder() const { return folder_.Path(); }
    std::filesystem::path File() const { return folder_.File(); }

 private:
    LogFolder folder_;
    bool running_ = true;
};

// Returns the parsed lines of a log file; one that is not in the log's form fails the test.
std::vector<LogLine> ReadLogLines(const std::filesystem::path& file);

}  // namespace kit
