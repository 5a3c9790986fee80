// Measures the logger beside its peers: the cost of a call for its caller, and the rate of lines to
// the file.
#include <spdlog/async.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include <atomic>
#include <thread>
#include <vector>

#include "testing/bench/LinesToFile.h"
#include "testing/bench/RunningLogger.h"
#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/Stopwatch.h"

namespace {

using namespace bench;

constexpr int kLines = 4000;

// Makes a burst of calls on each of `threads` threads at once, and times every call.
template <typename Call>
Samples Burst(int threads, Call call) {
    constexpr int kCallsInBurst = 256;
    std::atomic<int> ready{0};
    std::vector<Samples> samples(static_cast<std::size_t>(threads));
    std::vector<std::thread> callers;
    callers.reserve(samples.size());
    for (Samples& own : samples) {
        callers.emplace_back([&] {
            ++ready;
            while (ready < threads) std::this_thread::yield();
            for (int i = 0; i < kCallsInBurst; ++i) own.Add(Timed([&] { call(i); }));
        });
    }
    for (std::thread& caller : callers) caller.join();
    Samples all;
    for (const Samples& own : samples) all.Add(own);
    return all;
}

// Stops the logger at the end, which empties its queue: one burst does not slow the next.
Samples AgentBurst(int threads) {
    const RunningLogger running;
    vela::ILog* const log = vela::GetLogger();
    return Burst(threads, [log](int i) {
        log->Log(vela::kLogInfo, "SetButtonLight", "SetButtonLight for BUTTON_ID %d (%d)", i & 3,
                 i & 1);
    });
}

Samples PeerBurst(int threads, spdlog::async_overflow_policy policy) {
    const kit::LogFolder folder;
    const std::filesystem::path file = folder.Path() / "peer.log";
    const auto pool = std::make_shared<spdlog::details::thread_pool>(8192, 1);
    const auto sink = std::make_shared<spdlog::sinks::basic_file_sink_mt>(file.string());
    const auto log = std::make_shared<spdlog::async_logger>("peer", sink, pool, policy);
    log->set_pattern("[%Y-%m-%d %H:%M:%S] {%l @ SetButtonLight} %v");
    return Burst(threads, [&log](int i) {
        log->info("SetButtonLight for BUTTON_ID {} ({})", i & 3, i & 1);
    });
}

void RegisterCalls(int threads) {
    constexpr int kBursts = 100;
    // A tail is about the slowest call of a burst: it takes more bursts until it varies little.
    constexpr int kBurstsForTails = 1000;
    const std::string what =
        "Log call, " + std::to_string(threads) + (threads == 1 ? " thread" : " threads");
    const struct {
        const char* name;
        spdlog::async_overflow_policy policy;
    } peers[] = {{"spdlog, blocking", spdlog::async_overflow_policy::block},
                 {"spdlog, overrun", spdlog::async_overflow_policy::overrun_oldest}};
    for (const auto& peer : peers) {
        const auto measure = [threads, policy = peer.policy](benchmark::State& state,
                                                             const Row& row) {
            TakeTurns(
                state, row, [=] { return AgentBurst(threads); },
                [=] { return PeerBurst(threads, policy); });
        };
        Register({what, peer.name, kMedians, 1}, kBursts, measure)->UseManualTime();
        Register({what + ", 99.9 %", peer.name, kTails, 1}, kBurstsForTails, measure)
            ->UseManualTime();
    }
}

void RegisterNotInitialised() {
    constexpr int kCalls = 1000;
    const auto timeOfEach = [](auto call) {
        return Timed([&] {
                   for (int i = 0; i < kCalls; ++i) call(i);
               }) /
               kCalls;
    };
    const auto measure = [=](benchmark::State& state, const Row& row) {
        vela::ILog* const log = vela::GetLogger();
        const std::atomic<bool> running{false};
        TakeTurns(
            state, row,
            [&] {
                return timeOfEach(
                    [&](int i) { log->Log(vela::kLogInfo, "Update", "Update %d", i); });
            },
            [&] { return timeOfEach([&](int) { benchmark::DoNotOptimize(running.load()); }); });
    };
    Register({"Log call, logger not initialised", "atomic load", kNanosecondsOver, 3}, 2000,
             measure)
        ->UseManualTime();
}

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        RegisterNotInitialised();
        for (const int threads : {1, 4}) RegisterCalls(threads);
        RegisterLinesToFile("lines to the file", kLines);
    });
}
