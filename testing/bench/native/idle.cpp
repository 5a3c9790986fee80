// Counts how often an idle agent's threads wake up: the reader, the writer and the logger's.
// Usage: idle [SECONDS] [OPTIONS OF GOOGLE BENCHMARK]...
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include <unistd.h>

#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/RunningLogger.h"
#include "testing/bench/native/SessionFixture.h"

namespace {

using namespace bench;

// Counts how often threads went to sleep voluntarily: each time they had been woken before.
long Sleeps() {
    constexpr char kField[] = "voluntary_ctxt_switches:";
    long sleeps = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        if (task.path().filename() == std::to_string(getpid())) continue;
        std::ifstream status(task.path() / "status");
        for (std::string word; status >> word;) {
            if (word != kField) continue;
            long count = 0;
            status >> count;
            sleeps += count;
        }
    }
    return sleeps;
}

void WatchIdleAgent(benchmark::State& state, const Row& row, std::chrono::seconds time) {
    const RunningLogger logger;
    SessionFixture fixture;
    // The reports of the setup are written meanwhile.
    std::this_thread::sleep_for(std::chrono::seconds(1));
    long woken = 0;
    for (auto _ : state) {
        const long before = Sleeps();
        std::this_thread::sleep_for(time);
        woken = Sleeps() - before;
    }
    Report(state, row, static_cast<double>(woken), 0);
}

}  // namespace

int main(int argc, char** argv) {
    std::chrono::seconds time(60);
    if (argc > 1 && argv[1][0] != '-') {
        time = std::chrono::seconds(std::strtol(argv[1], nullptr, 10));
        argv[1] = argv[0];
        ++argv;
        --argc;
    }
    if (time.count() < 1) {
        std::fprintf(stderr, "usage: idle [SECONDS] [OPTIONS OF GOOGLE BENCHMARK]...\n");
        return 2;
    }
    return Run(argc, argv, [time] {
        Register(
            {"wake-ups while idle, " + std::to_string(time.count()) + " s", "nothing to do",
             kWakeUps, 0},
            1,
            [time](benchmark::State& state, const Row& row) { WatchIdleAgent(state, row, time); })
            ->UseRealTime();
    });
}
