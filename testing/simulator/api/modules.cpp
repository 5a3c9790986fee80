// Paths of modules, and output for a debugger.
#include <windows.h>

#include <algorithm>
#include <string>

#include "testing/simulator/CallRecorder.h"
#include "testing/simulator/LastError.h"
#include "testing/simulator/MachineState.h"

using namespace simulator;

extern "C" {

DWORD WINAPI GetModuleFileNameW(HMODULE hModule, LPWSTR lpFilename, DWORD nSize) {
    if (const auto fault = Enter("GetModuleFileNameW",
                                 Arguments(hModule != nullptr ? "module" : "null", Count(nSize)))) {
        return fault->Failed<DWORD>(0);
    }
    const MachineLock lock;
    const auto found = State().modules.find(hModule);
    if (found == State().modules.end()) return FailWith<DWORD>(ERROR_MOD_NOT_FOUND, 0);
    if (nSize == 0) return FailWith<DWORD>(ERROR_INSUFFICIENT_BUFFER, 0);

    const std::wstring& path = found->second;
    const std::size_t length = std::min<std::size_t>(path.size(), nSize - 1);
    std::copy_n(path.begin(), length, lpFilename);
    lpFilename[length] = L'\0';
    // The last error reports a truncated path; the result is then the size of the buffer.
    if (length < path.size()) return FailWith(ERROR_INSUFFICIENT_BUFFER, nSize);
    return static_cast<DWORD>(length);
}

void WINAPI OutputDebugStringA(LPCSTR lpOutputString) {
    const std::string text = lpOutputString != nullptr ? lpOutputString : "";
    if (Enter("OutputDebugStringA", "\"" + text + "\"")) return;
    const MachineLock lock;
    State().debugOutput.push_back(text);
}

}  // extern "C"
