// Results of overlapped operations.
#include <windows.h>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/IoOperation.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"
#include "testing/simulator/NtStatus.h"

using namespace simulator;

extern "C" BOOL WINAPI GetOverlappedResult(HANDLE hFile, LPOVERLAPPED lpOverlapped,
                                           LPDWORD lpNumberOfBytesTransferred, BOOL bWait) {
    if (const auto fault = Enter("GetOverlappedResult",
                                 Arguments(HandleName(hFile), HandleName(lpOverlapped->hEvent),
                                           Count(bWait != FALSE)))) {
        return fault->Failed<BOOL>(FALSE);
    }
    MachineLock lock;
    // FindFile only notes misuse here: the call does not check the handle, and uses the file only
    // when the record has no event.
    FindFile(hFile, "GetOverlappedResult");
    if (StatusIn(*lpOverlapped) == static_cast<NTSTATUS>(STATUS_PENDING)) {
        if (!bWait) return ReportError(ERROR_IO_INCOMPLETE);
        const HANDLE waited = lpOverlapped->hEvent != nullptr ? lpOverlapped->hEvent : hFile;
        const auto object = State().handles.Find<KernelObject>(waited);
        if (object == nullptr || object->Waitable() == nullptr) {
            return ReportError(ERROR_INVALID_HANDLE);
        }
        object->Waitable()->Wait(lock, INFINITE, State().endTimedWaits);
    }
    // The status is not checked again: an event that someone else signalled yields a success
    // without bytes, as on the platform.
    if (lpNumberOfBytesTransferred != nullptr) {
        *lpNumberOfBytesTransferred = static_cast<DWORD>(lpOverlapped->InternalHigh);
    }
    return ReportError(ErrorOf(StatusIn(*lpOverlapped)));
}
