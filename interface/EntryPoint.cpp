#include <atomic>

#include "interface/ModuleHandle.h"

namespace vela {
namespace {

std::atomic<HMODULE> moduleHandle{nullptr};

}  // namespace

HMODULE ModuleHandle() { return moduleHandle; }

}  // namespace vela

// Runs under the loader's lock: it stores the handle, and nothing is waited for, logged or torn
// down.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) vela::moduleHandle = module;
    return TRUE;
}
