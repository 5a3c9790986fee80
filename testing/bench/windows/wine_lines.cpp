// Measures the DLL's logger, linked in because no export takes lines from a host.
#include "testing/bench/LinesToFile.h"
#include "testing/bench/Run.h"

int main(int argc, char** argv) {
    // Fewer lines than natively: opening a file takes a round trip to Wine's server.
    constexpr int kLines = 1000;
    return bench::Run(argc, argv,
                      [] { bench::RegisterLinesToFile("Wine: lines to the file", kLines); });
}
