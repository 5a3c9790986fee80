#include "testing/bench/TableReporter.h"

#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>

#include "testing/bench/Row.h"

namespace bench {
namespace {

using Run = benchmark::BenchmarkReporter::Run;

// Returns nothing when the run has no such counter.
std::optional<double> Result(const Run& run, const std::string& counter) {
    const auto found = run.counters.find(counter);
    if (found == run.counters.end()) return {};
    return found->second.value;
}

std::string SideOf(const Run& run, const std::string& side, const Kind& kind) {
    const std::optional<double> compared = Result(run, side + kind.quantile);
    if (!compared) throw std::runtime_error("told no results");
    return kind.figure({*compared, Result(run, side + " p99.9").value_or(0)});
}

std::string Worded(const std::optional<double>& result, const Wording& wording) {
    return result ? wording(*result) : "";
}

std::string LineOf(const Run& run) {
    const Kind* const kind = FindKind(run.report_label);
    if (kind == nullptr) throw std::runtime_error("told no results");
    const std::optional<double> compared =
        kind->comparison != nullptr ? Result(run, kind->comparison->name) : std::nullopt;
    const std::optional<double> met = Result(run, "met");
    const RowEnds ends = EndsOf(run.run_name.function_name);
    return "| " + ends.what + " | " + SideOf(run, "measured", *kind) + " | " + ends.peer + ": " +
           SideOf(run, "peer", *kind) + " | " + Worded(compared, kind->compared) + " | " +
           Worded(Result(run, "target"), kind->target) + " | " +
           (!met        ? ""
            : *met != 0 ? "yes"
                        : "NO") +
           " |";
}

}  // namespace

void TableReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration) continue;
        try {
            if (run.error_occurred) throw std::runtime_error(run.error_message);
            GetOutputStream() << LineOf(run) << std::endl;
        } catch (const std::exception& error) {
            failure_ = true;
            GetErrorStream() << run.run_name.function_name << ": " << error.what() << std::endl;
        }
    }
}

}  // namespace bench
