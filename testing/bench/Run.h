// What every program of measurements does: it registers its rows and runs those that are asked for.
#pragma once

#include <functional>

namespace bench {

// The arguments are Google Benchmark's. Returns the exit code: 0 only when every row that was asked
// for was measured.
int Run(int argc, char** argv, const std::function<void()>& registerRows);

}  // namespace bench
