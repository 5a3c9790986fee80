#include "testing/virtual-touchpad/control/WaitingCreateFile.h"

extern "C" {
#include <hidsdi.h>
}

#include <cstring>
#include <stdexcept>

namespace virtual_touchpad {
namespace {

using CreateFileFunction = decltype(&CreateFileW);

// Looks the function up, as this module's own import may be the one that is replaced.
CreateFileFunction OriginalCreateFile() {
    const auto address = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "CreateFileW");
    CreateFileFunction function = nullptr;
    std::memcpy(&function, &address, sizeof(function));
    return function;
}

bool IsHidPath(const wchar_t* path) {
    return path != nullptr && _wcsnicmp(path, L"\\\\?\\hid#", 8) == 0;
}

// The driver fails every request on the handle of a refused open with this error.
bool WasRefused(HANDLE file) {
    ULONG buffers = 0;
    return !HidD_GetNumInputBuffers(file, &buffers) && GetLastError() == ERROR_SHARING_VIOLATION;
}

HANDLE WINAPI WaitingCreateFileW(LPCWSTR path, DWORD access, DWORD share,
                                 LPSECURITY_ATTRIBUTES security, DWORD disposition, DWORD flags,
                                 HANDLE templateFile) {
    const HANDLE file =
        OriginalCreateFile()(path, access, share, security, disposition, flags, templateFile);
    if (file == INVALID_HANDLE_VALUE || !IsHidPath(path)) return file;
    const DWORD error = GetLastError();
    if (!WasRefused(file)) {
        SetLastError(error);
        return file;
    }
    CloseHandle(file);
    SetLastError(ERROR_SHARING_VIOLATION);
    return INVALID_HANDLE_VALUE;
}

template <typename T>
T* At(HMODULE module, DWORD offset) {
    return reinterpret_cast<T*>(reinterpret_cast<char*>(module) + offset);
}

// Returns the entry of the module's import table for the address of CreateFileW, or null.
ULONGLONG* FindImport(HMODULE module) {
    const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* nt = At<IMAGE_NT_HEADERS64>(module, static_cast<DWORD>(dos->e_lfanew));
    const DWORD imports =
        nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    if (imports == 0) return nullptr;
    for (auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, imports); library->Name != 0;
         ++library) {
        auto* name = At<IMAGE_THUNK_DATA64>(module, library->OriginalFirstThunk);
        auto* address = At<IMAGE_THUNK_DATA64>(module, library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++address) {
            if (IMAGE_SNAP_BY_ORDINAL64(name->u1.Ordinal)) continue;
            const auto* byName =
                At<IMAGE_IMPORT_BY_NAME>(module, static_cast<DWORD>(name->u1.AddressOfData));
            const auto* text = reinterpret_cast<const char*>(byName->Name);
            if (std::strcmp(text, "CreateFileW") == 0) return &address->u1.Function;
        }
    }
    return nullptr;
}

}  // namespace

void MakeCreateFileWait(HMODULE module) {
    ULONGLONG* import = FindImport(module);
    if (import == nullptr) throw std::runtime_error("the module does not import CreateFileW");
    DWORD protection = 0;
    VirtualProtect(import, sizeof(*import), PAGE_READWRITE, &protection);
    *import = reinterpret_cast<ULONGLONG>(&WaitingCreateFileW);
    VirtualProtect(import, sizeof(*import), protection, &protection);
}

}  // namespace virtual_touchpad
