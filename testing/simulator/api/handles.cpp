// CloseHandle and the thread's last error.
#include <windows.h>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"
#include "testing/simulator/RealFiles.h"

using namespace simulator;

namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

bool CloseKernelHandle(HANDLE handle) {
    const MachineLock lock;
    // Device information lists are not kernel handles; a function of their own closes them.
    return !IsOfKind(handle, HandleKind::Devices) && State().handles.Close(handle);
}

}  // namespace

extern "C" {

DWORD WINAPI GetLastError(void) { return lastError; }

void WINAPI SetLastError(DWORD dwErrCode) { lastError = dwErrCode; }

BOOL WINAPI CloseHandle(HANDLE hObject) {
    const std::string arguments = Arguments(HandleName(hObject));
    const auto enter = RealFileDescriptor(hObject) ? EnterFileCall : Enter;
    if (const auto fault = enter("CloseHandle", arguments)) return fault->Failed<BOOL>(FALSE);
    if (CloseRealFile(hObject)) return TRUE;
    if (CloseKernelHandle(hObject)) return TRUE;
    NoteMisuse("CloseHandle(" + arguments + "): not an open handle");
    return ReportError(ERROR_INVALID_HANDLE);
}

}  // extern "C"
