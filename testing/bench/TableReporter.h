// Prints each run as a line of the Markdown table of scripts/bench. Failures go to stderr instead.
#pragma once

#include <benchmark/benchmark.h>

#include <vector>

namespace bench {

class TableReporter : public benchmark::BenchmarkReporter {
 public:
    // scripts/bench, which joins the programs' lines, prints the table's head.
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    bool HasFailure() const { return failure_; }

 private:
    bool failure_ = false;
};

}  // namespace bench
