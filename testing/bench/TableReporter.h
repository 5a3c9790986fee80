// Prints each run as a line of the one Markdown table of scripts/bench. What failed is told on
// stderr instead.
#pragma once

#include <benchmark/benchmark.h>

#include <vector>

namespace bench {

class TableReporter : public benchmark::BenchmarkReporter {
 public:
    // The table's head is printed by whoever puts the programs' lines together.
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    bool HasFailure() const { return failure_; }

 private:
    bool failure_ = false;
};

}  // namespace bench
