// Files of the machine that runs the tests, opened for appending.
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include <windows.h>

namespace simulator {

// The handles of open ones, apart from the table of the others: numbers of those do not depend on
// what the agent's logger does meanwhile. No value comes twice. Used under the machine's lock.
class RealFiles {
 public:
    HANDLE Add(int descriptor);
    // Nothing for any other handle.
    std::optional<int> Descriptor(HANDLE handle) const;
    // The descriptor is the caller's to close.
    void Remove(HANDLE handle) { descriptors_.erase(handle); }
    std::size_t Count() const { return descriptors_.size(); }

 private:
    std::map<HANDLE, int> descriptors_;
    std::uintptr_t created_ = 0;
};

// The descriptor of the open real file behind a handle; nothing for any other handle. Takes the
// machine's lock and gives it back, as using the descriptor may block, on a pipe for example.
std::optional<int> RealFileDescriptor(HANDLE handle);

// These return an error of the platform's.
DWORD OpenForAppending(LPCWSTR path, DWORD disposition, HANDLE& handle);
DWORD Append(int descriptor, LPCVOID bytes, DWORD length, LPDWORD written);
// False when the handle is not one of an open real file.
bool CloseRealFile(HANDLE handle);

// What the platform would say of errno.
DWORD FileError();

}  // namespace simulator
