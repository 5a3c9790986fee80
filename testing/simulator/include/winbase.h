// The kernel's functions: handles, events, mutexes, files, overlapped I/O, modules, memory.
#pragma once

#include <pthread.h>

#include <minwindef.h>
#include <winnt.h>

#define CREATE_NEW 1u
#define CREATE_ALWAYS 2u
#define OPEN_EXISTING 3u
#define OPEN_ALWAYS 4u
#define TRUNCATE_EXISTING 5u

#define FILE_FLAG_OVERLAPPED 0x40000000u

#define WAIT_OBJECT_0 ((STATUS_WAIT_0) + 0)
#define WAIT_TIMEOUT 258u
#define WAIT_FAILED ((DWORD)0xFFFFFFFF)
#define INFINITE 0xFFFFFFFFu

#define LOAD_LIBRARY_SEARCH_SYSTEM32 0x00000800u
#define GET_MODULE_HANDLE_EX_FLAG_PIN 0x00000001u
#define GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS 0x00000004u

#define STILL_ACTIVE ((DWORD)STATUS_PENDING)
#define STACK_SIZE_PARAM_IS_A_RESERVATION 0x00010000u
#define FLS_OUT_OF_INDEXES ((DWORD)0xFFFFFFFF)

#define GMEM_FIXED 0x0000u
#define GMEM_MOVEABLE 0x0002u
#define GMEM_ZEROINIT 0x0040u
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)

typedef struct _SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
} SECURITY_ATTRIBUTES, *PSECURITY_ATTRIBUTES, *LPSECURITY_ATTRIBUTES;

typedef struct _OVERLAPPED {
    ULONG_PTR Internal;      // the operation's status
    ULONG_PTR InternalHigh;  // the bytes transferred
    union {
        __extension__ struct {
            DWORD Offset;
            DWORD OffsetHigh;
        };
        PVOID Pointer;
    };
    HANDLE hEvent;
} OVERLAPPED, *LPOVERLAPPED;

static_assert(sizeof(OVERLAPPED) == 32);

typedef struct _WIN32_FILE_ATTRIBUTE_DATA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
} WIN32_FILE_ATTRIBUTE_DATA, *LPWIN32_FILE_ATTRIBUTE_DATA;

static_assert(sizeof(WIN32_FILE_ATTRIBUTE_DATA) == 36);

typedef enum _GET_FILEEX_INFO_LEVELS {
    GetFileExInfoStandard,
    GetFileExMaxInfoLevel
} GET_FILEEX_INFO_LEVELS;

// The platform has a pointer in each of these; here they contain the POSIX object.
typedef struct _RTL_SRWLOCK {
    pthread_mutex_t Mutex;
} SRWLOCK, *PSRWLOCK;
typedef struct _RTL_CONDITION_VARIABLE {
    pthread_cond_t Condition;
} CONDITION_VARIABLE, *PCONDITION_VARIABLE;
#define SRWLOCK_INIT \
    { PTHREAD_MUTEX_INITIALIZER }
#define CONDITION_VARIABLE_INIT \
    { PTHREAD_COND_INITIALIZER }

// Reads atomically, so that a query while the simulated kernel completes the operation is no data
// race.
#define HasOverlappedIoCompleted(lpOverlapped) \
    ((DWORD)__atomic_load_n(&(lpOverlapped)->Internal, __ATOMIC_ACQUIRE) != STATUS_PENDING)

extern "C" {

DWORD WINAPI GetLastError(void);
void WINAPI SetLastError(DWORD dwErrCode);
BOOL WINAPI CloseHandle(HANDLE hObject);

HANDLE WINAPI CreateEventW(LPSECURITY_ATTRIBUTES lpEventAttributes, BOOL bManualReset,
                           BOOL bInitialState, LPCWSTR lpName);
BOOL WINAPI SetEvent(HANDLE hEvent);
BOOL WINAPI ResetEvent(HANDLE hEvent);
DWORD WINAPI WaitForSingleObject(HANDLE hHandle, DWORD dwMilliseconds);

HANDLE WINAPI OpenMutexW(DWORD dwDesiredAccess, BOOL bInheritHandle, LPCWSTR lpName);
HANDLE WINAPI CreateMutexW(LPSECURITY_ATTRIBUTES lpMutexAttributes, BOOL bInitialOwner,
                           LPCWSTR lpName);

void WINAPI AcquireSRWLockExclusive(PSRWLOCK SRWLock);
void WINAPI ReleaseSRWLockExclusive(PSRWLOCK SRWLock);
BOOL WINAPI SleepConditionVariableSRW(PCONDITION_VARIABLE ConditionVariable, PSRWLOCK SRWLock,
                                      DWORD dwMilliseconds, ULONG Flags);
void WINAPI WakeAllConditionVariable(PCONDITION_VARIABLE ConditionVariable);

HANDLE WINAPI CreateFileW(LPCWSTR lpFileName, DWORD dwDesiredAccess, DWORD dwShareMode,
                          LPSECURITY_ATTRIBUTES lpSecurityAttributes, DWORD dwCreationDisposition,
                          DWORD dwFlagsAndAttributes, HANDLE hTemplateFile);
BOOL WINAPI ReadFile(HANDLE hFile, LPVOID lpBuffer, DWORD nNumberOfBytesToRead,
                     LPDWORD lpNumberOfBytesRead, LPOVERLAPPED lpOverlapped);
BOOL WINAPI WriteFile(HANDLE hFile, LPCVOID lpBuffer, DWORD nNumberOfBytesToWrite,
                      LPDWORD lpNumberOfBytesWritten, LPOVERLAPPED lpOverlapped);
BOOL WINAPI GetOverlappedResult(HANDLE hFile, LPOVERLAPPED lpOverlapped,
                                LPDWORD lpNumberOfBytesTransferred, BOOL bWait);

BOOL WINAPI GetFileAttributesExW(LPCWSTR lpFileName, GET_FILEEX_INFO_LEVELS fInfoLevelId,
                                 LPVOID lpFileInformation);
BOOL WINAPI DeleteFileW(LPCWSTR lpFileName);
BOOL WINAPI MoveFileW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName);

DWORD WINAPI GetModuleFileNameW(HMODULE hModule, LPWSTR lpFilename, DWORD nSize);
DWORD WINAPI GetPrivateProfileSectionNamesW(LPWSTR lpszReturnBuffer, DWORD nSize,
                                            LPCWSTR lpFileName);

HMODULE WINAPI GetModuleHandleW(LPCWSTR lpModuleName);
BOOL WINAPI GetModuleHandleExW(DWORD dwFlags, LPCWSTR lpModuleName, HMODULE* phModule);
HMODULE WINAPI LoadLibraryExW(LPCWSTR lpLibFileName, HANDLE hFile, DWORD dwFlags);
FARPROC WINAPI GetProcAddress(HMODULE hModule, LPCSTR lpProcName);

typedef DWORD(WINAPI* LPTHREAD_START_ROUTINE)(LPVOID lpThreadParameter);
HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES lpThreadAttributes, SIZE_T dwStackSize,
                           LPTHREAD_START_ROUTINE lpStartAddress, LPVOID lpParameter,
                           DWORD dwCreationFlags, LPDWORD lpThreadId);
BOOL WINAPI GetExitCodeThread(HANDLE hThread, LPDWORD lpExitCode);
void WINAPI Sleep(DWORD dwMilliseconds);
typedef void(WINAPI* PFLS_CALLBACK_FUNCTION)(PVOID lpFlsData);
DWORD WINAPI FlsAlloc(PFLS_CALLBACK_FUNCTION lpCallback);
BOOL WINAPI FlsSetValue(DWORD dwFlsIndex, PVOID lpFlsData);

HANDLE WINAPI GetCurrentProcess(void);
BOOL WINAPI TerminateProcess(HANDLE hProcess, UINT uExitCode);

HGLOBAL WINAPI GlobalAlloc(UINT uFlags, SIZE_T dwBytes);
HGLOBAL WINAPI GlobalFree(HGLOBAL hMem);

void WINAPI OutputDebugStringA(LPCSTR lpOutputString);

}  // extern "C"
