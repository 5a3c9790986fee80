#include "testing/simulator/RealFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "testing/simulator/MachineState.h"
#include "testing/simulator/Text.h"

namespace simulator {
namespace {

// Below the values of HandleTable, which contain the count of resets, and above the arbitrary
// values that tests use.
constexpr std::uintptr_t kFirstValue = std::uintptr_t{1} << 30;
constexpr std::uintptr_t kStep = 4;

constexpr mode_t kReadableByAll = 0644;

}  // namespace

HANDLE RealFiles::Add(int descriptor) {
    auto* const handle = reinterpret_cast<HANDLE>(kFirstValue + kStep * created_++);
    descriptors_.emplace(handle, descriptor);
    return handle;
}

std::optional<int> RealFiles::Descriptor(HANDLE handle) const {
    const auto found = descriptors_.find(handle);
    if (found == descriptors_.end()) return std::nullopt;
    return found->second;
}

std::optional<int> RealFileDescriptor(HANDLE handle) {
    const MachineLock lock;
    return State().realFiles.Descriptor(handle);
}

DWORD OpenForAppending(LPCWSTR path, DWORD disposition, HANDLE& handle) {
    if (path == nullptr) return ERROR_PATH_NOT_FOUND;
    if (disposition != OPEN_ALWAYS && disposition != OPEN_EXISTING) return ERROR_INVALID_PARAMETER;
    const std::string name = Utf8(path);
    const bool existed = access(name.c_str(), F_OK) == 0;
    const int creation = disposition == OPEN_ALWAYS ? O_CREAT : 0;
    const int descriptor =
        open(name.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC | creation, kReadableByAll);
    if (descriptor < 0) {
        // O_CREAT creates the file itself, so it is the folder that is missing.
        return creation != 0 && errno == ENOENT ? ERROR_PATH_NOT_FOUND : FileError();
    }
    if (creation != 0) SetLastError(existed ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    const MachineLock lock;
    handle = State().realFiles.Add(descriptor);
    return ERROR_SUCCESS;
}

DWORD Append(int descriptor, LPCVOID bytes, DWORD length, LPDWORD written) {
    if (written != nullptr) *written = 0;
    const ssize_t result = write(descriptor, bytes, length);
    if (result < 0) return FileError();
    if (written != nullptr) *written = static_cast<DWORD>(result);
    return ERROR_SUCCESS;
}

bool CloseRealFile(HANDLE handle) {
    const std::optional<int> descriptor = RealFileDescriptor(handle);
    if (!descriptor) return false;
    {
        const MachineLock lock;
        State().realFiles.Remove(handle);
    }
    close(*descriptor);
    return true;
}

DWORD FileError() {
    switch (errno) {
        case ENOENT:
            return ERROR_FILE_NOT_FOUND;
        case ENOTDIR:
            return ERROR_PATH_NOT_FOUND;
        case EEXIST:
            return ERROR_ALREADY_EXISTS;
        case EACCES:
        case EPERM:
        case EISDIR:
            return ERROR_ACCESS_DENIED;
        case ENOSPC:
            return ERROR_DISK_FULL;
        default:
            return ERROR_GEN_FAILURE;
    }
}

}  // namespace simulator
