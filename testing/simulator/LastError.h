// How a platform function of the BOOL kind answers.
#pragma once

#include <windows.h>

namespace simulator {

// TRUE for ERROR_SUCCESS, which leaves the last error as it was; else FALSE and the last error.
inline BOOL Answer(DWORD error) {
    if (error == ERROR_SUCCESS) return TRUE;
    SetLastError(error);
    return FALSE;
}

// The same for functions with another failure value.
template <typename Result>
Result FailWith(DWORD error, Result result) {
    SetLastError(error);
    return result;
}

}  // namespace simulator
