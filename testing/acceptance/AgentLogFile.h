// "VelaAgent.log" of an acceptance test.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace acceptance {

// A fresh folder below the system's folder for temporary files, removed at the end of the test.
class LogFolder {
 public:
    LogFolder();
    ~LogFolder();
    LogFolder(const LogFolder&) = delete;
    LogFolder& operator=(const LogFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path File() const { return path_ / "VelaAgent.log"; }

    // The bytes of the log file.
    std::string Text() const;
    // Its lines without their time stamps, as "{INFO @ Initialize} message". A line that does not
    // begin with a time stamp and end with carriage return and line feed fails the test.
    std::vector<std::string> Lines() const;

 private:
    std::filesystem::path path_;
};

}  // namespace acceptance
