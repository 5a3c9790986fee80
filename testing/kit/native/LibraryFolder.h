// Sets the path that the agent takes for its own file, and the "Vela.ini" beside it.
#pragma once

#include <windows.h>

#include <string>

#include "testing/simulator/Machine.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved);

namespace kit {

// Attaches the library from `path` in its constructor, and leaves no module handle behind.
class LibraryFolder {
 public:
    explicit LibraryFolder(const std::wstring& path = L"C:\\Vela\\VelaAgent.dll") {
        simulator::Machine::Get().SetModulePath(Module(), path);
        DllMain(Module(), DLL_PROCESS_ATTACH, nullptr);
    }
    ~LibraryFolder() { DllMain(nullptr, DLL_PROCESS_ATTACH, nullptr); }
    LibraryFolder(const LibraryFolder&) = delete;
    LibraryFolder& operator=(const LibraryFolder&) = delete;

    void PutVelaIni(const std::string& text) const {
        simulator::Machine::Get().PutFile(L"C:\\Vela\\Vela.ini", text);
    }

    static HINSTANCE Module() { return reinterpret_cast<HINSTANCE>(0x7FF600000000); }
};

}  // namespace kit
