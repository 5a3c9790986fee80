// The handle of the library's own file, by which it finds what lies beside it.
#pragma once

#include <windows.h>

namespace vela {

// Null until SetModuleHandle was called. Any thread.
HMODULE ModuleHandle();

// The entry point's, when the platform attaches the library to the process, under the loader's
// lock: stores the handle and does nothing else. A program that links parts of the agent passes the
// handle of the module that is to stand for the library.
void SetModuleHandle(HMODULE module);

}  // namespace vela
