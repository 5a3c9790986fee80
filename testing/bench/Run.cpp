#include "testing/bench/Run.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>

#include "testing/bench/TableReporter.h"

namespace bench {

int Run(int argc, char** argv, const std::function<void()>& registerRows) {
    constexpr int kFailed = 1;
    constexpr int kMisused = 2;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return kMisused;
    try {
        registerRows();
        TableReporter reporter;
        const std::size_t rows = benchmark::RunSpecifiedBenchmarks(&reporter);
        return rows == 0 || reporter.HasFailure() ? kFailed : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return kFailed;
    }
}

}  // namespace bench
