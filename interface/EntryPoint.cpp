#include "platform/ModuleHandle.h"
#include "platform/ProcessEnd.h"

// Runs under the loader lock, so it only stores values: it does not wait, log or tear anything
// down.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved) {
    if (reason == DLL_PROCESS_ATTACH) vela::SetModuleHandle(module);
    // `reserved` is null when the library alone is unloaded.
    if (reason == DLL_PROCESS_DETACH && reserved != nullptr) vela::MarkProcessEnding();
    return TRUE;
}
