// Measures the DLL's size and loading time, beside a DLL whose exports do nothing.
#include <windows.h>

#include <filesystem>
#include <stdexcept>

#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/Stopwatch.h"
#include "testing/kit/windows/AgentDll.h"

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

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        Register({"size of the DLL", kPeer, kSizes, {}}, 1, Weigh);
        Register({"Wine: loading the DLL", kPeer, kMedians, {}}, 200, Load)->UseManualTime();
    });
}
