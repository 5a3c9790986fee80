// Loading libraries and finding their functions. The system's own are always loaded.
#include <windows.h>

#include <cfgmgr32.h>
#include <powrprof.h>

#include <cstdlib>
#include <map>
#include <string>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"
#include "testing/simulator/Text.h"

using namespace simulator;

namespace {

using Functions = std::map<std::string, void*>;

// Lists only those functions of the system's libraries that callers look up at run time, as older
// systems lack them.
const std::map<std::wstring, Functions>& SystemLibraries() {
    static const auto address = [](auto* function) { return reinterpret_cast<void*>(function); };
    static const std::map<std::wstring, Functions> libraries{
        {L"ntdll.dll", {}},
        {L"user32.dll",
         {{"RegisterSuspendResumeNotification", address(RegisterSuspendResumeNotification)}}},
        {L"cfgmgr32.dll",
         {{"CM_Register_Notification", address(CM_Register_Notification)},
          {"CM_Unregister_Notification", address(CM_Unregister_Notification)}}},
        {L"powrprof.dll",
         {{"PowerRegisterSuspendResumeNotification",
           address(PowerRegisterSuspendResumeNotification)},
          {"PowerUnregisterSuspendResumeNotification",
           address(PowerUnregisterSuspendResumeNotification)}}},
    };
    return libraries;
}

// A module's handle points to its functions; that of the program is null.
const Functions* Find(LPCWSTR name) {
    const std::wstring folded = FoldCase(name);
    const auto system = SystemLibraries().find(folded);
    if (system != SystemLibraries().end()) return &system->second;
    const auto found = State().libraries.find(folded);
    return found != State().libraries.end() ? &found->second : nullptr;
}

}  // namespace

extern "C" {

HMODULE WINAPI GetModuleHandleW(LPCWSTR lpModuleName) {
    if (lpModuleName == nullptr) return nullptr;
    const MachineLock lock;
    const Functions* const functions = Find(lpModuleName);
    if (functions == nullptr) return FailWith<HMODULE>(ERROR_MOD_NOT_FOUND, nullptr);
    return const_cast<Functions*>(functions);
}

// Nothing is ever unloaded.
BOOL WINAPI GetModuleHandleExW(DWORD, LPCWSTR, HMODULE* phModule) {
    *phModule = nullptr;
    return TRUE;
}

HMODULE WINAPI LoadLibraryExW(LPCWSTR lpLibFileName, HANDLE, DWORD) {
    if (const auto fault = Enter("LoadLibraryExW", Quoted(lpLibFileName))) {
        return fault->Failed<HMODULE>(nullptr);
    }
    return GetModuleHandleW(lpLibFileName);
}

FARPROC WINAPI GetProcAddress(HMODULE hModule, LPCSTR lpProcName) {
    if (const auto fault = Enter("GetProcAddress", lpProcName)) {
        return fault->Failed<FARPROC>(nullptr);
    }
    const MachineLock lock;
    const auto* const functions = static_cast<const Functions*>(hModule);
    const auto found = functions->find(lpProcName);
    if (found == functions->end()) return FailWith<FARPROC>(ERROR_PROC_NOT_FOUND, nullptr);
    return reinterpret_cast<FARPROC>(found->second);
}

HANDLE WINAPI GetCurrentProcess() { return INVALID_HANDLE_VALUE; }

BOOL WINAPI TerminateProcess(HANDLE, UINT uExitCode) { std::_Exit(static_cast<int>(uExitCode)); }

}  // extern "C"
