// "VelaAgent.log" of a test, in a folder of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace test_support {

struct LogLine {
    std::string level;
    std::string function;
    std::string message;

    // "WARNING Initialize: text", the form that tests compare.
    std::string Text() const { return level + " " + function + ": " + message; }
};

// Starts the agent's logger in a fresh folder, and stops it with Finish or the destructor, which
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

    const std::filesystem::path& Folder() const { return folder_; }
    std::filesystem::path File() const;

 private:
    std::filesystem::path folder_;
    bool running_ = true;
};

// A fresh empty folder for a test.
std::filesystem::path MakeTemporaryFolder();
// The path of the log file that the agent makes of a directory. Natively the backslash before
// "VelaAgent.log" is part of the file's name, and the file lies beside the folder.
std::filesystem::path LogFileIn(const std::filesystem::path& folder);
std::string FileText(const std::filesystem::path& file);
// The parsed lines of a log file; one that is not in the log's form fails the test.
std::vector<LogLine> ReadLogLines(const std::filesystem::path& file);

}  // namespace test_support
