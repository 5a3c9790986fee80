// One opening of the log's file.
#pragma once

#include <cstdint>
#include <string>

#include "platform/FileHandle.h"

namespace vela {

// Owned by the thread that opens it. Whoever else has the file open may read, write, rename and
// delete it meanwhile, and no child process inherits the handle.
class LogFile {
 public:
    // Opens the file for appending; creates it when it is not there.
    explicit LogFile(const std::wstring& path);

    // Writes a line in one piece, with a carriage return before its line feed. A file that could
    // not be opened stays silent; a line that does not reach an open file, as on a full disk, is
    // reported to the debugger.
    void Append(const std::string& line) const;

    // Queries a file's size in bytes without opening it. False on failure, with the last error.
    static bool GetSize(const std::wstring& path, std::uint64_t& size);

 private:
    FileHandle file_;
};

}  // namespace vela
