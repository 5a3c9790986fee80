// One row of the table, which is one benchmark. It tells its results as the run's counters, and its
// kind as the run's label, so that whoever reports the run, as a line or as JSON, has all of it.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <optional>
#include <string>

#include "testing/bench/Kind.h"
#include "testing/bench/Samples.h"

namespace bench {

struct Row {
    std::string what;
    std::string peer;  // the limit or peer
    const Kind& kind;
    std::optional<double> target;

    // The benchmark's.
    std::string Name() const;
};

// The two ends of a row's name.
struct RowEnds {
    std::string what;
    std::string peer;
};
RowEnds EndsOf(const std::string& name);

using Measure = std::function<void(benchmark::State& state, const Row& row)>;

// An exception is the failure of that benchmark, and the others go on.
benchmark::internal::Benchmark* Register(const Row& row, benchmark::IterationCount iterations,
                                         const Measure& measure);

// The results: of many measurements, or of one number for each side.
void Report(benchmark::State& state, const Row& row, const Pair& pair);
void Report(benchmark::State& state, const Row& row, double measured, double peer);

// Measured thing and peer take turns, so that whatever else the machine does meets both. Each gives
// back the nanoseconds that it took, or the Samples of a turn. The benchmark's own time is what was
// measured, one turn's mean.
template <typename Measured, typename Peer>
void TakeTurns(benchmark::State& state, const Row& row, Measured&& measured, Peer&& peer) {
    Pair pair;
    for (auto _ : state) {
        Samples turn;
        turn.Add(measured());
        state.SetIterationTime(turn.Mean() / 1e9);
        pair.measured.Add(turn);
        pair.peer.Add(peer());
    }
    Report(state, row, pair);
}

}  // namespace bench
