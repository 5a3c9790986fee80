#include "testing/kit/windows/OpenHandles.h"

#include <windows.h>
#include <winternl.h>

#include <cstdint>

namespace kit {

// Tries each value that a handle of a small process may have: Wine's GetProcessHandleCount returns
// 0, and gives no kinds.
std::map<std::wstring, int> OpenHandles() {
    constexpr std::uintptr_t kHighest = 0x4000;
    constexpr std::uintptr_t kStep = 4;
    std::map<std::wstring, int> handles;
    for (std::uintptr_t value = kStep; value < kHighest; value += kStep) {
        alignas(UNICODE_STRING) char information[1024] = {};
        if (NtQueryObject(reinterpret_cast<HANDLE>(value), ObjectTypeInformation, information,
                          sizeof(information), nullptr) < 0) {
            continue;
        }
        const auto* type = reinterpret_cast<const UNICODE_STRING*>(information);
        ++handles[std::wstring(type->Buffer, type->Length / sizeof(wchar_t))];
    }
    return handles;
}

}  // namespace kit
