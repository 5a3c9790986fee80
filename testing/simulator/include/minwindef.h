// Basic types. Those that are 32 bits on the platform are 32 bits here, where `long` has 64.
#pragma once

#include <cstddef>
#include <cstdint>

#define VOID void
#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

// One calling convention, as on every 64-bit Windows.
#define WINAPI
#define CALLBACK
#define APIENTRY
#define NTAPI
#define __cdecl
#define __stdcall

typedef char CHAR, *PCHAR, *LPSTR;
typedef const char *LPCSTR, *PCSTR, *LPCCH;
typedef wchar_t WCHAR, *PWCHAR, *PWSTR, *LPWSTR;
typedef const wchar_t *PCWSTR, *LPCWSTR, *LPCWCH;

typedef std::uint8_t BYTE, *PBYTE, *LPBYTE;
typedef std::uint8_t UCHAR, *PUCHAR;
typedef BYTE BOOLEAN, *PBOOLEAN;
typedef std::int16_t SHORT, *PSHORT;
typedef std::uint16_t WORD, *PWORD, *LPWORD;
typedef std::uint16_t USHORT, *PUSHORT;
typedef std::int32_t INT, *PINT;
typedef std::int32_t LONG, *PLONG, *LPLONG;
typedef std::int32_t BOOL, *PBOOL, *LPBOOL;
typedef std::int32_t NTSTATUS;
typedef std::uint32_t UINT, *PUINT;
typedef std::uint32_t DWORD, *PDWORD, *LPDWORD;
typedef std::uint32_t ULONG, *PULONG;
typedef std::int64_t LONGLONG, LONG64;
typedef std::uint64_t ULONGLONG, DWORD64, ULONG64;

typedef std::intptr_t INT_PTR, LONG_PTR;
typedef std::uintptr_t UINT_PTR, ULONG_PTR, *PULONG_PTR, DWORD_PTR;
typedef std::size_t SIZE_T, *PSIZE_T;

typedef void *PVOID, *LPVOID;
typedef const void* LPCVOID;
typedef void *HANDLE, **PHANDLE, **LPHANDLE;
typedef HANDLE HINSTANCE, HMODULE, HGLOBAL, HWND;
typedef INT_PTR(WINAPI* FARPROC)();

typedef struct _GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
} GUID, *LPGUID;
typedef const GUID* LPCGUID;

typedef struct _FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
} FILETIME;

static_assert(sizeof(GUID) == 16);
