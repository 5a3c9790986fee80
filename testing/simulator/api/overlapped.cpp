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
    // Neither is the handle checked nor is the file needed where an event tells of the end.
    FindFile(hFile, "GetOverlappedResult");
    if (StatusIn(*lpOverlapped) == static_cast<NTSTATUS>(STATUS_PENDING)) {
        if (!bWait) return Answer(ERROR_IO_INCOMPLETE);
        const HANDLE waited = lpOverlapped->hEvent != nullptr ? lpOverlapped->hEvent : hFile;
        const auto object = State().handles.Find<KernelObject>(waited);
        if (object == nullptr || object->Waitable() == nullptr) return Answer(ERROR_INVALID_HANDLE);
        object->Waitable()->Wait(lock, INFINITE, State().endTimedWaits);
    }
    // Nothing asks again whether the operation has ended: an event that someone else signalled
    // gives a success without bytes, as on the platform.
    if (lpNumberOfBytesTransferred != nullptr) {
        *lpNumberOfBytesTransferred = static_cast<DWORD>(lpOverlapped->InternalHigh);
    }
    return Answer(ErrorOf(StatusIn(*lpOverlapped)));
}
