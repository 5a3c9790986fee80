#include "platform/ModuleHandle.h"

// Runs under the loader's lock: it stores the handle, and nothing is waited for, logged or torn
// down.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) vela::SetModuleHandle(module);
    return TRUE;
}
