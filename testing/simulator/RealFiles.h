// Files of the machine that runs the tests, opened for appending.
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include <windows.h>

namespace simulator {

// The handles of open real files. They are kept apart from HandleTable so that its numbers do not
// depend on the agent's logger. No value is used twice. Callers hold the machine's lock.
class RealFiles {
 public:
    HANDLE Add(int descriptor);
    // Returns nothing for any other handle.
    std::optional<int> Descriptor(HANDLE handle) const;
    // The caller closes the descriptor.
    void Remove(HANDLE handle) { descriptors_.erase(handle); }
    std::size_t Count() const { return descriptors_.size(); }

 private:
    std::map<HANDLE, int> descriptors_;
    std::uintptr_t created_ = 0;
};

// Returns the descriptor of an open real file, or nothing for any other handle. The machine's lock
// is released on return, as using the descriptor may block, on a pipe for example.
std::optional<int> RealFileDescriptor(HANDLE handle);

// These return a platform error code.
DWORD OpenForAppending(LPCWSTR path, DWORD disposition, HANDLE& handle);
DWORD Append(int descriptor, LPCVOID bytes, DWORD length, LPDWORD written);
// Returns false when the handle is not one of an open real file.
bool CloseRealFile(HANDLE handle);

// Converts errno to the platform's error code.
DWORD FileError();

}  // namespace simulator
