// The handle of the library's own file, by which it finds what lies beside it.
#pragma once

#include <windows.h>

namespace vela {

// Null until the platform has attached the library to the process.
HMODULE ModuleHandle();

}  // namespace vela
