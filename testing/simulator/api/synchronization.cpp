// Events, mutexes and waiting.
#include <windows.h>

#include <memory>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"

using namespace simulator;

namespace {

bool IsDenied(LPCWSTR name) {
    const auto found = State().foreignMutexes.find(name);
    return found != State().foreignMutexes.end() && found->second.denied;
}

// Opens the object of that name if there is one; the last error is then ERROR_ALREADY_EXISTS.
template <typename Object>
HANDLE CreateNamed(HandleKind kind, LPCWSTR name, std::shared_ptr<Object> fresh) {
    const MachineLock lock;
    const bool named = name != nullptr && *name != L'\0';
    if (named && IsDenied(name)) return FailWith<HANDLE>(ERROR_ACCESS_DENIED, nullptr);
    if (const auto existing = named ? FindNamed(name) : nullptr) {
        if (std::dynamic_pointer_cast<Object>(existing) == nullptr) {
            return FailWith<HANDLE>(ERROR_INVALID_HANDLE, nullptr);
        }
        SetLastError(ERROR_ALREADY_EXISTS);
        return State().handles.Add(kind, existing);
    }
    if (named) State().names[name] = fresh;
    SetLastError(ERROR_SUCCESS);
    return State().handles.Add(kind, fresh);
}

template <typename Work>
BOOL OnEvent(HANDLE handle, Work work) {
    const MachineLock lock;
    const auto event = State().handles.Find<EventObject>(handle);
    if (event == nullptr) return ReportError(ERROR_INVALID_HANDLE);
    work(*event->Waitable());
    return TRUE;
}

}  // namespace

extern "C" {

HANDLE WINAPI CreateEventW(LPSECURITY_ATTRIBUTES, BOOL bManualReset, BOOL bInitialState,
                           LPCWSTR lpName) {
    if (const auto fault =
            Enter("CreateEventW", Arguments(Count(bManualReset != FALSE),
                                            Count(bInitialState != FALSE), Quoted(lpName)))) {
        return fault->Failed<HANDLE>(nullptr);
    }
    const auto reset = bManualReset ? Signal::Reset::Manual : Signal::Reset::Auto;
    return CreateNamed(HandleKind::Event, lpName,
                       std::make_shared<EventObject>(reset, bInitialState != FALSE));
}

BOOL WINAPI SetEvent(HANDLE hEvent) {
    if (const auto fault = Enter("SetEvent", Arguments(HandleName(hEvent)))) {
        return fault->Failed<BOOL>(FALSE);
    }
    return OnEvent(hEvent, [](Signal& signal) { signal.Set(); });
}

BOOL WINAPI ResetEvent(HANDLE hEvent) {
    if (const auto fault = Enter("ResetEvent", Arguments(HandleName(hEvent)))) {
        return fault->Failed<BOOL>(FALSE);
    }
    return OnEvent(hEvent, [](Signal& signal) { signal.Clear(); });
}

DWORD WINAPI WaitForSingleObject(HANDLE hHandle, DWORD dwMilliseconds) {
    if (const auto fault =
            Enter("WaitForSingleObject",
                  Arguments(HandleName(hHandle),
                            dwMilliseconds == INFINITE ? "infinite" : Count(dwMilliseconds)))) {
        return fault->Failed<DWORD>(WAIT_FAILED);
    }
    MachineLock lock;
    // The shared_ptr keeps the object while waiting, as another thread may close the handle.
    const auto object = State().handles.Find<KernelObject>(hHandle);
    Signal* const signal = object != nullptr ? object->Waitable() : nullptr;
    if (signal == nullptr) return FailWith(ERROR_INVALID_HANDLE, WAIT_FAILED);
    return signal->Wait(lock, dwMilliseconds, State().endTimedWaits) ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

HANDLE WINAPI OpenMutexW(DWORD dwDesiredAccess, BOOL bInheritHandle, LPCWSTR lpName) {
    if (const auto fault = Enter(
            "OpenMutexW",
            Arguments(Hex(dwDesiredAccess), Count(bInheritHandle != FALSE), Quoted(lpName)))) {
        return fault->Failed<HANDLE>(nullptr);
    }
    if (lpName == nullptr) return FailWith<HANDLE>(ERROR_INVALID_PARAMETER, nullptr);
    const MachineLock lock;
    const auto existing = FindNamed(lpName);
    if (existing == nullptr) return FailWith<HANDLE>(ERROR_FILE_NOT_FOUND, nullptr);
    if (IsDenied(lpName)) return FailWith<HANDLE>(ERROR_ACCESS_DENIED, nullptr);
    if (std::dynamic_pointer_cast<MutexObject>(existing) == nullptr) {
        return FailWith<HANDLE>(ERROR_INVALID_HANDLE, nullptr);
    }
    return State().handles.Add(HandleKind::Mutex, existing);
}

HANDLE WINAPI CreateMutexW(LPSECURITY_ATTRIBUTES, BOOL bInitialOwner, LPCWSTR lpName) {
    if (const auto fault =
            Enter("CreateMutexW", Arguments(Count(bInitialOwner != FALSE), Quoted(lpName)))) {
        return fault->Failed<HANDLE>(nullptr);
    }
    return CreateNamed(HandleKind::Mutex, lpName, std::make_shared<MutexObject>());
}

}  // extern "C"
