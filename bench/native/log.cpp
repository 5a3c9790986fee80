// The logger beside its peers: what a call costs its caller, and how fast lines reach the file.
#include <spdlog/async.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include <atomic>
#include <thread>
#include <vector>

#include "bench/Stopwatch.h"
#include "bench/Table.h"
#include "bench/native/BareLogFile.h"
#include "bench/native/Stage.h"
#include "log/ILog.h"

namespace {

using namespace bench;

constexpr std::size_t kBursts = 100;
constexpr int kCallsInBurst = 256;

// A burst on each of `threads` threads at once; every call is timed.
template <typename Call>
Samples Burst(int threads, Call call) {
    std::atomic<int> ready{0};
    std::vector<Samples> samples(static_cast<std::size_t>(threads));
    std::vector<std::thread> callers;
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

// The logger's queue is empty again afterwards, so that one burst does not slow the next.
Samples AgentBurst(int threads, const LogFolder& folder) {
    vela::ILog* const log = vela::GetLogger();
    log->Initialize(folder.ForAgent());
    const Samples samples = Burst(threads, [log](int i) {
        log->Log(vela::kLogInfo, "SetButtonLight", "SetButtonLight for BUTTON_ID %d (%d)", i & 3,
                 i & 1);
    });
    log->UnInitialize();
    return samples;
}

Samples PeerBurst(int threads, const std::filesystem::path& file,
                  spdlog::async_overflow_policy policy) {
    const auto pool = std::make_shared<spdlog::details::thread_pool>(8192, 1);
    const auto sink = std::make_shared<spdlog::sinks::basic_file_sink_mt>(file.string());
    const auto log = std::make_shared<spdlog::async_logger>("peer", sink, pool, policy);
    log->set_pattern("[%Y-%m-%d %H:%M:%S] {%l @ SetButtonLight} %v");
    return Burst(threads, [&log](int i) {
        log->info("SetButtonLight for BUTTON_ID {} ({})", i & 3, i & 1);
    });
}

void Calls(int threads, const std::string& peer, spdlog::async_overflow_policy policy) {
    const LogFolder folder;
    const Pair pair = TakeTurns(
        kBursts, [&] { return AgentBurst(threads, folder); },
        [&] { return PeerBurst(threads, folder.Path() / "peer.log", policy); });
    const std::string what =
        "Log call, " + std::to_string(threads) + (threads == 1 ? " thread" : " threads");
    PrintMedians(what, peer, pair, 1.0);
    PrintTails(what + ", 99.9 %", peer, pair, 1.0);
}

// Callers name themselves by a literal, as a rule, of which a string is made first.
template <typename Name>
void NotInitialised(const std::string& what, const Name& name) {
    constexpr int kCalls = 1000;
    vela::ILog* const log = vela::GetLogger();
    std::atomic<bool> running{false};
    int seen = 0;
    const auto each = [](double nanoseconds) {
        Samples samples;
        samples.Add(nanoseconds / kCalls);
        return samples;
    };
    const Pair pair = TakeTurns(
        2000,
        [&] {
            return each(Timed([&] {
                for (int i = 0; i < kCalls; ++i) {
                    log->Log(vela::kLogInfo, name, "Update %d", i);
                }
            }));
        },
        [&] {
            return each(Timed([&] {
                for (int i = 0; i < kCalls; ++i) seen += running;
            }));
        });
    // As it is shown.
    const double over = std::stod(Number(pair.measured.Median() - pair.peer.Median()));
    Print({what, Number(pair.measured.Median()) + " ns",
           "atomic load: " + Number(pair.peer.Median()) + " ns", "+" + Number(over) + " ns",
           "at most 3 ns over", over <= 3 && seen == 0});
}

// From the first call until the last line is in the file.
void LinesPerSecond() {
    constexpr int kLines = 4000;
    const LogFolder folder;
    const auto agent = [&] {
        Samples samples;
        vela::ILog* const log = vela::GetLogger();
        std::filesystem::remove(folder.AgentLog());
        samples.Add(Timed([&] {
            log->Initialize(folder.ForAgent());
            for (int i = 0; i < kLines; ++i) log->Info(kBareMessage, kBareFunction);
            log->UnInitialize();
        }));
        return samples;
    };
    const auto bare = [&] {
        Samples samples;
        samples.Add(Timed([&] { WriteBareLines(folder.Path() / "bare.log", kLines); }));
        std::filesystem::remove(folder.Path() / "bare.log");
        return samples;
    };
    const Pair pair = TakeTurns(25, agent, bare);
    const auto rate = [](const Samples& samples) { return kLines / (samples.Median() / 1e9); };
    const double ratio = rate(pair.measured) / rate(pair.peer);
    Print({"lines to the file", Number(rate(pair.measured), 0) + " /s",
           "bare loop: " + Number(rate(pair.peer), 0) + " /s", Number(ratio), "at least 0.90",
           ratio >= 0.9});
}

}  // namespace

int main() {
    NotInitialised("Log call, logger not initialised", std::string("Update"));
    NotInitialised("Log call, logger not initialised, name a literal", "Update");
    for (const int threads : {1, 4}) {
        Calls(threads, "spdlog, blocking", spdlog::async_overflow_policy::block);
        Calls(threads, "spdlog, overrun", spdlog::async_overflow_policy::overrun_oldest);
    }
    LinesPerSecond();
}
