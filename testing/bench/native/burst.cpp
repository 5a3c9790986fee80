// Measures how long callers are held up that change lights at the same time, on a touchpad with
// slow writes.
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/Stopwatch.h"
#include "testing/bench/native/SessionFixture.h"

namespace {

using namespace bench;

constexpr int kTurns = 20;
constexpr int kCallers = 8;
constexpr std::chrono::milliseconds kWrite{100};

// Lets each write take kWrite.
class SlowWrites {
 public:
    explicit SlowWrites(simulator::Device& device) : device_(device) {
        device_.SetWriteBehaviour(simulator::WriteBehaviour::Hold);
        thread_ = std::thread([this] { Run(); });
    }
    ~SlowWrites() {
        stop_ = true;
        thread_.join();
        device_.SetWriteBehaviour(simulator::WriteBehaviour::Pend);
        device_.CompleteHeldWrites();
    }
    SlowWrites(const SlowWrites&) = delete;
    SlowWrites& operator=(const SlowWrites&) = delete;

 private:
    void Run() {
        while (!stop_) {
            if (device_.HeldWrites() == 0) {
                std::this_thread::sleep_for(std::chrono::microseconds(100));
                continue;
            }
            std::this_thread::sleep_for(kWrite);
            device_.CompleteHeldWrites();
        }
    }

    simulator::Device& device_;
    std::atomic<bool> stop_{false};
    std::thread thread_;
};

// Returns the times of one call by each caller, which all start together.
Samples Burst(SessionFixture& fixture) {
    std::atomic<int> ready{0};
    std::vector<double> times(kCallers);
    std::vector<std::thread> callers;
    callers.reserve(kCallers);
    for (int caller = 0; caller < kCallers; ++caller) {
        callers.emplace_back([&, caller] {
            ++ready;
            while (ready < kCallers) std::this_thread::yield();
            times[caller] =
                Timed([&] { fixture.Session().SetBrightness(static_cast<BYTE>(10 + caller)); });
        });
    }
    for (std::thread& caller : callers) caller.join();
    Samples samples;
    for (const double time : times) samples.Add(time);
    return samples;
}

void BurstBesideOneWrite(benchmark::State& state, const Row& row) {
    SessionFixture fixture;
    TakeTurns(
        state, row,
        [&] {
            double mean = 0;
            {
                const SlowWrites slow(fixture.Device());
                mean = Burst(fixture).Mean();
            }
            fixture.Settle();
            return mean;
        },
        [] { return std::chrono::duration<double, std::nano>(kWrite).count(); });
}

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        // With unordered callers a call takes the time of 2.3 writes, as the mean of eight.
        const Row row{"light call of 8 callers at once, mean", "one write of 100 ms", kMedians,
                      2.2};
        Register(row, kTurns, BurstBesideOneWrite)->UseManualTime();
    });
}
