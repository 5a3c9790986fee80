#include "platform/ModuleHandle.h"
#include "platform/ProcessEnd.h"

// Runs under the loader's lock: it stores what the platform says, and nothing is waited for, logged
// or torn down.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved) {
    if (reason == DLL_PROCESS_ATTACH) vela::SetModuleHandle(module);
    // Null where the library alone is unloaded.
    if (reason == DLL_PROCESS_DETACH && reserved != nullptr) vela::MarkProcessEnding();
    return TRUE;
}
