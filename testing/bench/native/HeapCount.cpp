#include "testing/bench/native/HeapCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include <windows.h>

#include "hid/HidHeaders.h"

namespace {

std::atomic<std::size_t> all{0};
thread_local std::size_t own = 0;
thread_local int uncounted = 0;

}  // namespace

namespace bench {

std::size_t AllocationsOfAllThreads() { return all; }
std::size_t AllocationsOfThisThread() { return own; }

Uncounted::Uncounted() { ++uncounted; }
Uncounted::~Uncounted() { --uncounted; }

}  // namespace bench

void* operator new(std::size_t size) {
    if (uncounted == 0) {
        ++all;
        ++own;
    }
    if (void* const memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

// The linker redirects the agent's calls of these functions to here (its option --wrap).
#define VELA_WRAP(result, name, parameters, arguments) \
    extern "C" result __real_##name parameters;        \
    extern "C" result __wrap_##name parameters {       \
        const bench::Uncounted inside;                 \
        return __real_##name arguments;                \
    }

VELA_WRAP(NTSTATUS, HidP_SetUsageValue,
          (HIDP_REPORT_TYPE type, USAGE page, USHORT link, USAGE usage, ULONG value,
           PHIDP_PREPARSED_DATA preparsed, PCHAR report, ULONG length),
          (type, page, link, usage, value, preparsed, report, length))
VELA_WRAP(NTSTATUS, HidP_SetUsages,
          (HIDP_REPORT_TYPE type, USAGE page, USHORT link, PUSAGE list, PULONG count,
           PHIDP_PREPARSED_DATA preparsed, PCHAR report, ULONG length),
          (type, page, link, list, count, preparsed, report, length))
VELA_WRAP(NTSTATUS, HidP_GetUsages,
          (HIDP_REPORT_TYPE type, USAGE page, USHORT link, PUSAGE list, PULONG count,
           PHIDP_PREPARSED_DATA preparsed, PCHAR report, ULONG length),
          (type, page, link, list, count, preparsed, report, length))
VELA_WRAP(NTSTATUS, HidP_GetUsageValue,
          (HIDP_REPORT_TYPE type, USAGE page, USHORT link, USAGE usage, PULONG value,
           PHIDP_PREPARSED_DATA preparsed, PCHAR report, ULONG length),
          (type, page, link, usage, value, preparsed, report, length))
VELA_WRAP(BOOL, ReadFile, (HANDLE file, LPVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED how),
          (file, buffer, size, done, how))
VELA_WRAP(BOOL, WriteFile,
          (HANDLE file, LPCVOID buffer, DWORD size, LPDWORD done, LPOVERLAPPED how),
          (file, buffer, size, done, how))
VELA_WRAP(BOOL, GetOverlappedResult, (HANDLE file, LPOVERLAPPED how, LPDWORD done, BOOL wait),
          (file, how, done, wait))
VELA_WRAP(DWORD, WaitForSingleObject, (HANDLE handle, DWORD milliseconds), (handle, milliseconds))
