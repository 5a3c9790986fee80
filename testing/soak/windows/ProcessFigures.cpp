#include "testing/soak/ProcessFigures.h"

#include <windows.h>
#include <tlhelp32.h>
#include <winternl.h>

#include <cstdlib>
#include <vector>

namespace soak {

// Tries value after value: Wine's GetProcessHandleCount returns 0, and gives no kinds. Handle
// values lie close together, so a long row of unused ones is the end.
std::map<std::string, std::int64_t> OpenHandles() {
    constexpr int kLongRow = 4096;
    constexpr std::uintptr_t kStep = 4;
    std::map<std::string, std::int64_t> handles;
    int unused = 0;
    for (std::uintptr_t value = kStep; unused < kLongRow; value += kStep) {
        alignas(UNICODE_STRING) char information[1024] = {};
        if (NtQueryObject(reinterpret_cast<HANDLE>(value), ObjectTypeInformation, information,
                          sizeof(information), nullptr) < 0) {
            ++unused;
            continue;
        }
        unused = 0;
        const auto* type = reinterpret_cast<const UNICODE_STRING*>(information);
        std::string kind;
        for (USHORT i = 0; i < type->Length / sizeof(wchar_t); ++i) {
            kind += static_cast<char>(type->Buffer[i]);
        }
        ++handles[kind];
    }
    return handles;
}

std::int64_t ThreadCount() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    std::int64_t count = 0;
    THREADENTRY32 thread{};
    thread.dwSize = sizeof(thread);
    for (BOOL more = Thread32First(snapshot, &thread); more;
         more = Thread32Next(snapshot, &thread)) {
        if (thread.th32OwnerProcessID == GetCurrentProcessId()) ++count;
    }
    CloseHandle(snapshot);
    return count;
}

std::int64_t HeapInUse() {
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    std::int64_t bytes = 0;
    for (const HANDLE heap : heaps) {
        HeapLock(heap);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heap, &entry)) {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
        }
        HeapUnlock(heap);
    }
    return bytes;
}

void LeaveAtOnce(int exitCode) {
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
    std::abort();
}

}  // namespace soak
