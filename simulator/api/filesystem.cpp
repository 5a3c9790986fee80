// Deleting and renaming files: on the file system of the machine that runs the tests, where a
// backslash is a character of a file's name.
#include <windows.h>

#include <cerrno>
#include <cstdio>
#include <unistd.h>

#include "simulator/CallRecorder.h"
#include "simulator/LastError.h"
#include "simulator/Text.h"

using namespace simulator;

namespace {

DWORD ErrorOfCall(int result) {
    if (result == 0) return ERROR_SUCCESS;
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
        default:
            return ERROR_GEN_FAILURE;
    }
}

// Not in one step: renameat2, which would refuse an existing target by itself, is not there on
// every file system.
DWORD Move(const std::string& from, const std::string& to) {
    if (access(to.c_str(), F_OK) == 0) return ERROR_ALREADY_EXISTS;
    return ErrorOfCall(std::rename(from.c_str(), to.c_str()));
}

}  // namespace

extern "C" {

BOOL WINAPI DeleteFileW(LPCWSTR lpFileName) {
    if (const auto fault = Enter("DeleteFileW", Quoted(lpFileName))) {
        return fault->Failed<BOOL>(FALSE);
    }
    return Answer(ErrorOfCall(unlink(Utf8(lpFileName).c_str())));
}

BOOL WINAPI MoveFileW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName) {
    if (const auto fault =
            Enter("MoveFileW", Arguments(Quoted(lpExistingFileName), Quoted(lpNewFileName)))) {
        return fault->Failed<BOOL>(FALSE);
    }
    return Answer(Move(Utf8(lpExistingFileName), Utf8(lpNewFileName)));
}

}  // extern "C"
