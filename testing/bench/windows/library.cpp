// Measures the DLL's size, its loading time and the memory of a host that has the touchpad open,
// beside a DLL whose exports do nothing and a bare handle of the touchpad.
#include <windows.h>

#include <psapi.h>

#include <filesystem>
#include <stdexcept>

#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/Stopwatch.h"
#include "testing/bench/windows/Host.h"
#include "testing/kit/windows/AgentDll.h"
#include "testing/virtual-touchpad/plug/Plug.h"

namespace {

using namespace bench;

constexpr char kPeer[] = "30 empty exports";

std::filesystem::path Agent() { return kit::ProgramFolder() / "VelaAgent.dll"; }
std::filesystem::path Empty() { return kit::ProgramFolder() / "bench_empty.dll"; }

void Weigh(benchmark::State& state, const Row& row) {
    double agent = 0;
    double empty = 0;
    for (auto _ : state) {
        agent = static_cast<double>(std::filesystem::file_size(Agent()));
        empty = static_cast<double>(std::filesystem::file_size(Empty()));
    }
    Report(state, row, agent, empty);
}

double TimeOfLoading(const std::filesystem::path& file) {
    HMODULE module = nullptr;
    const double time = Timed([&] { module = LoadLibraryW(file.c_str()); });
    if (module == nullptr) throw std::runtime_error(file.string() + " cannot be loaded");
    FreeLibrary(module);
    return time;
}

void Load(benchmark::State& state, const Row& row) {
    TimeOfLoading(Empty());
    TakeTurns(
        state, row, [agent = Agent()] { return TimeOfLoading(agent); },
        [empty = Empty()] { return TimeOfLoading(empty); });
}

// The commit charge, which Windows also calls the private usage. Wine leaves that one at zero.
double PrivateMemory() {
    PROCESS_MEMORY_COUNTERS counters{};
    if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters))) {
        throw std::runtime_error("the process's memory cannot be queried");
    }
    return static_cast<double>(counters.PagefileUsage);
}

// Each side is measured once, and behind all other rows, as the libraries stay loaded.
void Occupy(benchmark::State& state, const Row& row) {
    virtual_touchpad::UnplugAll();
    const std::wstring path = virtual_touchpad::Plug(virtual_touchpad::TouchpadLayout{});
    double peer = 0;
    double agent = 0;
    for (auto _ : state) {
        const double before = PrivateMemory();
        LoadLibraryW(Empty().c_str());
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                        OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
        peer = PrivateMemory() - before;
        CloseHandle(file);
        const double closed = PrivateMemory();
        const kit::AgentDll dll;
        const AgentHost host(dll);
        agent = PrivateMemory() - closed;
    }
    Report(state, row, agent, peer);
    virtual_touchpad::UnplugAll();
}

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        Register({"size of the DLL", kPeer, kSizes, {}}, 1, Weigh);
        Register({"Wine: loading the DLL", kPeer, kMedians, {}}, 200, Load)->UseManualTime();
        Register({"Wine: private memory of a host with a session",
                  "30 empty exports, bare handle",
                  kSizes,
                  {}},
                 1, Occupy);
    });
}
