// Measures the private memory of a host that has the touchpad open, beside one that has loaded a
// DLL whose exports do nothing and holds a bare handle of the touchpad.
#include <windows.h>

#include <psapi.h>

#include <stdexcept>

#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/windows/Host.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using namespace bench;

// The commit charge, which Windows also calls the private usage. Wine leaves that one at zero.
double PrivateMemory() {
    PROCESS_MEMORY_COUNTERS counters{};
    if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters))) {
        throw std::runtime_error("the process's memory cannot be queried");
    }
    return static_cast<double>(counters.PagefileUsage);
}

// Each side is measured once, as the libraries stay loaded.
void Occupy(benchmark::State& state, const Row& row) {
    virtual_touchpad::UnplugAll();
    const std::wstring path = virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    double peer = 0;
    double agent = 0;
    for (auto _ : state) {
        const double before = PrivateMemory();
        const HMODULE empty = LoadLibraryW((kit::ProgramFolder() / "bench_empty.dll").c_str());
        if (empty == nullptr) throw std::runtime_error("bench_empty.dll cannot be loaded");
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                        OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
        peer = PrivateMemory() - before;
        CloseHandle(file);
        const double closed = PrivateMemory();
        const kit::AgentDll dll;
        const AgentHost host(dll);
        agent = PrivateMemory() - closed;
        FreeLibrary(empty);
    }
    Report(state, row, agent, peer);
    virtual_touchpad::UnplugAll();
}

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        Register({"Wine: private memory of a host with a session",
                  "30 empty exports, bare handle",
                  kSizes,
                  {}},
                 1, Occupy);
    });
}
