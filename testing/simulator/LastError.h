// Return values of platform functions that report a last error.
#pragma once

#include <windows.h>

namespace simulator {

// Returns TRUE for ERROR_SUCCESS and keeps the last error; else sets it and returns FALSE.
inline BOOL ReportError(DWORD error) {
    if (error == ERROR_SUCCESS) return TRUE;
    SetLastError(error);
    return FALSE;
}

// Sets the last error and returns the failure value of the function.
template <typename Result>
Result FailWith(DWORD error, Result result) {
    SetLastError(error);
    return result;
}

}  // namespace simulator
