// A new folder below the system's folder for temporary files, removed at the end.
#pragma once

#include <filesystem>

namespace kit {

class TemporaryFolder {
 public:
    // Throws std::filesystem::filesystem_error when the folder cannot be made.
    TemporaryFolder();
    // Leaves behind what cannot be removed, such as a file that another process has open.
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

 private:
    std::filesystem::path path_;
};

// Returns the bytes of a file, none when it cannot be opened.
std::string FileText(const std::filesystem::path& file);

}  // namespace kit
