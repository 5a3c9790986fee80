// Owns a platform file handle. The invalid file handle is all bits set, unlike that of events and
// mutexes, which is null.
#pragma once

#include <windows.h>

namespace vela {

class FileHandle {
 public:
    explicit FileHandle(HANDLE handle) : handle_(handle) {}
    ~FileHandle() {
        if (!IsValid()) return;
        // Callers query the last error of the failed call, which closing must not replace.
        const DWORD error = GetLastError();
        CloseHandle(handle_);
        SetLastError(error);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    bool IsValid() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

 private:
    HANDLE handle_;
};

}  // namespace vela
