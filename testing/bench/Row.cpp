#include "testing/bench/Row.h"

#include <exception>

namespace bench {
namespace {

constexpr char kBeside[] = " beside ";

void ReportQuantiles(benchmark::State& state, const std::string& side, const Samples& samples) {
    state.counters[side + " p50"] = samples.Median();
    state.counters[side + " p99"] = samples.Quantile(0.99);
    state.counters[side + " p99.9"] = samples.Tail();
}

void Compare(benchmark::State& state, const Row& row) {
    const Kind& kind = row.kind;
    state.SetLabel(kind.name);
    if (kind.comparison == nullptr) return;
    const std::string quantile = kind.quantile;
    const double compared = kind.comparison->of(state.counters["measured" + quantile],
                                                state.counters["peer" + quantile]);
    state.counters[kind.comparison->name] = compared;
    if (!row.target) return;
    state.counters["target"] = *row.target;
    // The rounded number is compared: 1.004 meets a target of 1.00.
    state.counters["met"] = kind.comparison->meets(kind.compared.Rounded(compared), *row.target);
}

}  // namespace

std::string Row::Name() const { return what + kBeside + peer; }

RowEnds EndsOf(const std::string& name) {
    const std::size_t beside = name.find(kBeside);
    if (beside == std::string::npos) return {name, ""};
    return {name.substr(0, beside), name.substr(beside + sizeof(kBeside) - 1)};
}

benchmark::internal::Benchmark* Register(const Row& row, benchmark::IterationCount iterations,
                                         const Measure& measure) {
    const auto run = [row, measure](benchmark::State& state) {
        try {
            measure(state, row);
        } catch (const std::exception& error) {
            state.SkipWithError(error.what());
        }
    };
    return benchmark::RegisterBenchmark(row.Name().c_str(), run)->Iterations(iterations);
}

void Report(benchmark::State& state, const Row& row, const Pair& pair) {
    ReportQuantiles(state, "measured", pair.measured);
    ReportQuantiles(state, "peer", pair.peer);
    Compare(state, row);
}

void Report(benchmark::State& state, const Row& row, double measured, double peer) {
    state.counters["measured"] = measured;
    state.counters["peer"] = peer;
    Compare(state, row);
}

}  // namespace bench
