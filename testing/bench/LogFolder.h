// A new folder for log files, removed at the end.
#pragma once

#include <filesystem>
#include <string>

namespace bench {

class LogFolder {
 public:
    LogFolder();
    ~LogFolder();
    LogFolder(const LogFolder&) = delete;
    LogFolder& operator=(const LogFolder&) = delete;

    // The agent joins its file's name with a backslash, which natively is a letter like any other.
    std::filesystem::path AgentLog() const;
    std::wstring ForAgent() const { return folder_.wstring(); }
    const std::filesystem::path& Path() const { return folder_; }

 private:
    std::filesystem::path folder_;
};

}  // namespace bench
