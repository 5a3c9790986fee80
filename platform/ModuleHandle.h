// The handle of the library's own module, which locates the files beside it.
#pragma once

#include <windows.h>

namespace vela {

// Returns null until SetModuleHandle was called. Any thread may call it.
HMODULE ModuleHandle();

// Stores the handle and does nothing else: the entry point calls it under the loader lock, when the
// platform attaches the library to the process. A program that links parts of the agent passes the
// handle of the module that stands for the library.
void SetModuleHandle(HMODULE module);

}  // namespace vela
