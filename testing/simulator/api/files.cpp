// Opening devices, reading and writing reports. Real files can only be opened for appending.
#include <windows.h>

#include <memory>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/IoOperation.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"
#include "testing/simulator/RealFiles.h"
#include "testing/simulator/Text.h"

using namespace simulator;

namespace {

std::shared_ptr<DeviceObject> FindPresent(const std::wstring& path) {
    const std::wstring folded = FoldCase(path);
    for (const auto& device : State().devices) {
        if (device->IsPresent() && FoldCase(device->Description().path) == folded) return device;
    }
    return nullptr;
}

DWORD OpenDevice(LPCWSTR path, Access access, DWORD disposition, DWORD flags, HANDLE& handle) {
    if (path == nullptr) return ERROR_PATH_NOT_FOUND;
    if (disposition != OPEN_EXISTING && disposition != OPEN_ALWAYS) return ERROR_INVALID_PARAMETER;
    const MachineLock lock;
    const auto device = FindPresent(path);
    if (device == nullptr) return ERROR_FILE_NOT_FOUND;
    std::shared_ptr<FileObject> file;
    if (const DWORD error = device->Open(access, (flags & FILE_FLAG_OVERLAPPED) != 0, file)) {
        return error;
    }
    handle = State().handles.Add(HandleKind::File, file);
    return ERROR_SUCCESS;
}

std::string EventName(const OVERLAPPED* overlapped) {
    return HandleName(overlapped != nullptr ? overlapped->hEvent : nullptr);
}

// Does what ReadFile and WriteFile share: `allowed` checks the access that the file was opened
// with, `transfer` passes the operation to the device.
template <typename Transfer>
BOOL StartIo(const char* function, HANDLE handle, bool (Access::*allowed)() const,
             LPDWORD transferred, LPOVERLAPPED overlapped, Transfer transfer) {
    if (transferred != nullptr) *transferred = 0;
    // The record is marked before anything is checked, and stays so when the call fails.
    if (overlapped != nullptr) MarkPending(*overlapped);

    const MachineLock lock;
    const auto file = FindFile(handle, function);
    if (file == nullptr) return ReportError(ERROR_INVALID_HANDLE);
    if (!(file->Opening().*allowed)()) return ReportError(ERROR_ACCESS_DENIED);
    if (!file->IsOverlapped()) return ReportError(ERROR_NOT_SUPPORTED);
    if (overlapped == nullptr) return ReportError(ERROR_INVALID_PARAMETER);

    std::shared_ptr<KernelObject> signalled = file;
    if (overlapped->hEvent != nullptr) {
        signalled = State().handles.Find<EventObject>(overlapped->hEvent);
        if (signalled == nullptr) return ReportError(ERROR_INVALID_HANDLE);
    }
    signalled->Waitable()->Clear();
    if (!file->IsConnected()) return ReportError(ERROR_DEVICE_NOT_CONNECTED);

    const DWORD error = transfer(*file, IoOperation(*overlapped, signalled));
    if (error == ERROR_SUCCESS && transferred != nullptr) {
        *transferred = static_cast<DWORD>(overlapped->InternalHigh);
    }
    return ReportError(error);
}

}  // namespace

extern "C" {

HANDLE WINAPI CreateFileW(LPCWSTR lpFileName, DWORD dwDesiredAccess, DWORD dwShareMode,
                          LPSECURITY_ATTRIBUTES, DWORD dwCreationDisposition,
                          DWORD dwFlagsAndAttributes, HANDLE) {
    const bool isReal = dwDesiredAccess == FILE_APPEND_DATA;
    const auto enter = isReal ? EnterFileCall : Enter;
    if (const auto fault = enter(
            "CreateFileW", Arguments(Quoted(lpFileName), Hex(dwDesiredAccess), Hex(dwShareMode),
                                     Count(dwCreationDisposition), Hex(dwFlagsAndAttributes)))) {
        return fault->Failed<HANDLE>(INVALID_HANDLE_VALUE);
    }
    HANDLE handle = INVALID_HANDLE_VALUE;
    if (isReal) {
        ReportError(OpenForAppending(lpFileName, dwCreationDisposition, handle));
        return handle;
    }
    ReportError(OpenDevice(lpFileName, {dwDesiredAccess, dwShareMode}, dwCreationDisposition,
                           dwFlagsAndAttributes, handle));
    return handle;
}

BOOL WINAPI ReadFile(HANDLE hFile, LPVOID lpBuffer, DWORD nNumberOfBytesToRead,
                     LPDWORD lpNumberOfBytesRead, LPOVERLAPPED lpOverlapped) {
    if (const auto fault = Enter(
            "ReadFile",
            Arguments(HandleName(hFile), Count(nNumberOfBytesToRead), EventName(lpOverlapped)))) {
        return fault->Failed<BOOL>(FALSE);
    }
    return StartIo("ReadFile", hFile, &Access::Reads, lpNumberOfBytesRead, lpOverlapped,
                   [&](FileObject& file, const IoOperation& operation) {
                       return file.Device().Read(file, operation, lpBuffer, nNumberOfBytesToRead);
                   });
}

BOOL WINAPI WriteFile(HANDLE hFile, LPCVOID lpBuffer, DWORD nNumberOfBytesToWrite,
                      LPDWORD lpNumberOfBytesWritten, LPOVERLAPPED lpOverlapped) {
    const auto realFile = RealFileDescriptor(hFile);
    const auto enter = realFile ? EnterFileCall : Enter;
    if (const auto fault = enter(
            "WriteFile", Arguments(HandleName(hFile), HexBytes(lpBuffer, nNumberOfBytesToWrite),
                                   EventName(lpOverlapped)))) {
        return fault->Failed<BOOL>(FALSE);
    }
    if (realFile) {
        return ReportError(
            Append(*realFile, lpBuffer, nNumberOfBytesToWrite, lpNumberOfBytesWritten));
    }
    return StartIo("WriteFile", hFile, &Access::Writes, lpNumberOfBytesWritten, lpOverlapped,
                   [&](FileObject& file, const IoOperation& operation) {
                       return file.Device().Write(file, operation, lpBuffer, nNumberOfBytesToWrite);
                   });
}

}  // extern "C"
