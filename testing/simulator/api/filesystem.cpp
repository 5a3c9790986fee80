// Deletes, renames and measures files on the file system of the machine that runs the tests, where
// a backslash is an ordinary character of a file's name.
#include <windows.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/RealFiles.h"
#include "testing/simulator/Text.h"

using namespace simulator;

namespace {

DWORD ErrorOfCall(int result) { return result == 0 ? ERROR_SUCCESS : FileError(); }

// Checks first, as renameat2, which would itself refuse an existing target, is missing on some file
// systems.
DWORD Move(const std::string& from, const std::string& to) {
    if (access(to.c_str(), F_OK) == 0) return ERROR_ALREADY_EXISTS;
    return ErrorOfCall(std::rename(from.c_str(), to.c_str()));
}

// Returns the time in tenths of a microsecond since 1601.
FILETIME FileTime(const timespec& time) {
    constexpr std::uint64_t kSecond = 10000000;
    constexpr std::uint64_t kSecondsUntil1970 = 11644473600;
    const std::uint64_t ticks =
        (static_cast<std::uint64_t>(time.tv_sec) + kSecondsUntil1970) * kSecond +
        static_cast<std::uint64_t>(time.tv_nsec) / 100;
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

// The time of creation, which this machine does not keep, is that of the last change.
DWORD GetAttributes(const std::string& path, WIN32_FILE_ATTRIBUTE_DATA& data) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return FileError();
    const bool isFolder = S_ISDIR(status.st_mode);
    const std::uint64_t size = isFolder ? 0 : static_cast<std::uint64_t>(status.st_size);
    data = {isFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL,
            FileTime(status.st_ctim),
            FileTime(status.st_atim),
            FileTime(status.st_mtim),
            static_cast<DWORD>(size >> 32),
            static_cast<DWORD>(size)};
    return ERROR_SUCCESS;
}

}  // namespace

extern "C" {

BOOL WINAPI GetFileAttributesExW(LPCWSTR lpFileName, GET_FILEEX_INFO_LEVELS fInfoLevelId,
                                 LPVOID lpFileInformation) {
    if (const auto fault = EnterFileCall("GetFileAttributesExW",
                                         Arguments(Quoted(lpFileName), Count(fInfoLevelId)))) {
        return fault->Failed<BOOL>(FALSE);
    }
    if (fInfoLevelId != GetFileExInfoStandard) return ReportError(ERROR_INVALID_PARAMETER);
    return ReportError(GetAttributes(Utf8(lpFileName),
                                     *static_cast<LPWIN32_FILE_ATTRIBUTE_DATA>(lpFileInformation)));
}

BOOL WINAPI DeleteFileW(LPCWSTR lpFileName) {
    if (const auto fault = Enter("DeleteFileW", Quoted(lpFileName))) {
        return fault->Failed<BOOL>(FALSE);
    }
    return ReportError(ErrorOfCall(unlink(Utf8(lpFileName).c_str())));
}

BOOL WINAPI MoveFileW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName) {
    if (const auto fault =
            Enter("MoveFileW", Arguments(Quoted(lpExistingFileName), Quoted(lpNewFileName)))) {
        return fault->Failed<BOOL>(FALSE);
    }
    return ReportError(Move(Utf8(lpExistingFileName), Utf8(lpNewFileName)));
}

}  // extern "C"
