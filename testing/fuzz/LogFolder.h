// Where a fuzzer has the agent write its log: a folder of the process's own, removed at its end.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "testing/fuzz/Check.h"

namespace fuzz {

class LogFolder {
 public:
    static LogFolder& Get() {
        static LogFolder folder;
        return folder;
    }

    // Natively the backslash before the log's name is part of it, so that the file lies in the
    // folder.
    std::wstring Directory() const { return (folder_ / "log").wstring(); }
    std::filesystem::path File() const { return folder_ / "log\\VelaAgent.log"; }
    void Clear() const { std::filesystem::remove(File()); }

 private:
    LogFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "vela-fuzz-XXXXXX").string();
        Check(mkdtemp(pattern.data()) != nullptr, "no temporary folder");
        folder_ = pattern;
    }
    ~LogFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::filesystem::path folder_;
};

}  // namespace fuzz
