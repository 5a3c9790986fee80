// The main function of every measuring program: registers its rows and runs the selected ones.
#pragma once

#include <functional>

namespace bench {

// Takes Google Benchmark's arguments. Returns the exit code, which is 0 only when every selected
// row was measured.
int Run(int argc, char** argv, const std::function<void()>& registerRows);

}  // namespace bench
