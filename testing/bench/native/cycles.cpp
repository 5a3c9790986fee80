// Opens and closes sessions over and over, and measures whether that stays as fast as at the
// beginning, and what it leaves on the heap.
#include <malloc.h>

#include "hid/HIDDiscovery.h"
#include "testing/bench/Row.h"
#include "testing/bench/Run.h"
#include "testing/bench/Stopwatch.h"
#include "testing/bench/native/SessionFixture.h"

namespace {

using namespace bench;

constexpr int kCycles = 10000;
constexpr int kPart = 1000;

class Cycles {
 public:
    double Next() {
        const double time = Timed([this] {
            session_.Initialize(vela::ScanHIDInformation(&session_));
            session_.Uninitialize();
        });
        device_->ForgetOutputs();
        return time;
    }

 private:
    std::shared_ptr<simulator::Device> device_ = EmptyMachine().Plug(Touchpad());
    vela::CTandrelHID session_;
};

// Compares the last part with the first one. These cannot take turns.
void TimeCycles(benchmark::State& state, const Row& row) {
    Cycles cycles;
    Pair pair;
    int done = 0;
    for (auto _ : state) {
        const double time = cycles.Next();
        state.SetIterationTime(time / 1e9);
        ++done;
        if (done <= kPart) pair.peer.Add(time);
        if (done > kCycles - kPart) pair.measured.Add(time);
    }
    Report(state, row, pair);
}

double HeapInUse() { return static_cast<double>(mallinfo2().uordblks); }

// A session never closes its two events, because operations may end late.
double HeapOfTwoEvents() {
    const double before = HeapInUse();
    for (int i = 0; i < kPart; ++i) {
        // cppcheck-suppress leakReturnValNotUsed ; the leak is what is weighed
        CreateEventW(nullptr, FALSE, FALSE, nullptr);
        // cppcheck-suppress leakReturnValNotUsed ; likewise
        CreateEventW(nullptr, TRUE, FALSE, nullptr);
    }
    return (HeapInUse() - before) / kPart;
}

void WeighCycles(benchmark::State& state, const Row& row) {
    Cycles cycles;
    for (int i = 0; i < kPart; ++i) cycles.Next();
    const double before = HeapInUse();
    for (auto _ : state) cycles.Next();
    const double each = (HeapInUse() - before) / static_cast<double>(state.iterations());
    Report(state, row, each, HeapOfTwoEvents());
}

}  // namespace

int main(int argc, char** argv) {
    return Run(argc, argv, [] {
        Register({"Init and UnInit, the last 1,000 of 10,000", "the first 1,000", kMedians, 1.1},
                 kCycles, TimeCycles)
            ->UseManualTime();
        Register(
            {"memory that each Init and UnInit leaves", "its two events alone", kBytesLeft, 16},
            kCycles - kPart, WeighCycles);
    });
}
