// One row of the table, which is one benchmark. It reports its results as the run's counters and
// its kind as the run's label, so the table's and the JSON's reporter both have all of them.
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

    // Returns the name of the benchmark.
    std::string Name() const;
};

// The two parts of a row's name.
struct RowEnds {
    std::string what;
    std::string peer;
};
RowEnds EndsOf(const std::string& name);

using Measure = std::function<void(benchmark::State& state, const Row& row)>;

// Registers the row as a benchmark. An exception fails this benchmark only.
benchmark::internal::Benchmark* Register(const Row& row, benchmark::IterationCount iterations,
                                         const Measure& measure);

// Report the results: many measurements, or one number for each side.
void Report(benchmark::State& state, const Row& row, const Pair& pair);
void Report(benchmark::State& state, const Row& row, double measured, double peer);

// Runs the measured code and its peer in turns, so that other load on the machine affects both.
// Each returns the nanoseconds that it took, or the Samples of a turn. The benchmark's own time is
// the mean of the measured code's turn.
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
