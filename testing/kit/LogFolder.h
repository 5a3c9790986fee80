// A new folder for "VelaAgent.log", removed at the end.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "testing/kit/TemporaryFolder.h"
#include "testing/kit/WaitUntil.h"

namespace kit {

// Returns the path of the log file of a host that passes this directory to InitLogger. The agent
// joins directory and file name with a backslash, which natively is an ordinary letter: there the
// file lies beside the directory.
std::filesystem::path LogFileIn(const std::filesystem::path& directory);

class LogFolder {
 public:
    LogFolder();

    // The directory for InitLogger.
    const std::filesystem::path& Path() const { return directory_; }
    std::filesystem::path File() const { return LogFileIn(directory_); }
    std::filesystem::path Backup() const { return File().string() + ".old"; }

    // The bytes of the log file.
    std::string Text() const { return FileText(File()); }
    // Its lines without their time stamps, as "{INFO @ Initialize} message". Throws
    // std::runtime_error for a line that does not begin with a time stamp and end with carriage
    // return and line feed.
    std::vector<std::string> Lines() const;

    // Returns the number of lines that contain the text.
    std::size_t CountLines(const std::string& text) const;
    // Returns true once that many lines contain the text.
    bool WaitForLine(const std::string& text, std::size_t count = 1,
                     std::chrono::seconds patience = kPatience) const;

 private:
    TemporaryFolder folder_;
    std::filesystem::path directory_;
};

}  // namespace kit
