#include "testing/bench/LinesToFile.h"

#include <fstream>
#include <future>
#include <stdexcept>
#include <vector>

#include "log/ILog.h"
#include "testing/bench/BareLines.h"
#include "testing/bench/Row.h"
#include "testing/bench/Stopwatch.h"
#include "testing/kit/LogFolder.h"

namespace bench {
namespace {

constexpr int kTurns = 25;

// Returns the time from the first call until the last line is in the file.
double TimeOfAgent(const kit::LogFolder& folder, int lines) {
    std::filesystem::remove(folder.File());
    vela::ILog* const log = vela::GetLogger();
    return Timed([&] {
        log->Initialize(folder.Path().wstring());
        for (int i = 0; i < lines; ++i) {
            log->Info("SetButtonLight for BUTTON_ID 2 (1)", "SetButtonLight");
        }
        log->UnInitialize();
    });
}

// Writes on a thread of its own, as the agent does: on Wine the system calls of a process's first
// thread return sooner than those of others.
double TimeOfBareLoop(const std::filesystem::path& file, const std::vector<std::string>& lines) {
    std::filesystem::remove(file);
    return Timed(
        [&] { std::async(std::launch::async, [&] { WriteBareLines(file, lines); }).get(); });
}

// Returns the lines with their line ends, in whatever form the platform writes them.
std::vector<std::string> LinesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line + '\n');
    return lines;
}

void WriteInTurns(benchmark::State& state, const Row& row, int count) {
    const kit::LogFolder folder;
    const std::filesystem::path bareLog = folder.Path() / "BareLines.log";
    TimeOfAgent(folder, count);
    // The logger adds one line of its own at its end.
    const std::vector<std::string> lines = LinesOf(folder.File());
    const auto rate = [&](double time) { return static_cast<double>(lines.size()) / (time / 1e9); };
    Pair rates;
    for (auto _ : state) {
        const double time = TimeOfAgent(folder, count);
        state.SetIterationTime(time / 1e9);
        rates.measured.Add(rate(time));
        rates.peer.Add(rate(TimeOfBareLoop(bareLog, lines)));
        if (std::filesystem::file_size(folder.File()) != std::filesystem::file_size(bareLog)) {
            throw std::runtime_error("the two logs differ");
        }
    }
    Report(state, row, rates);
}

}  // namespace

void RegisterLinesToFile(const std::string& what, int lines) {
    Register({what, "bare loop", kRates, 0.9}, kTurns,
             [lines](benchmark::State& state, const Row& row) { WriteInTurns(state, row, lines); })
        ->UseManualTime();
}

}  // namespace bench
