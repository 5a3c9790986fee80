#include "testing/soak/Figures.h"

#include <algorithm>
#include <cstdio>

namespace soak {
namespace {

constexpr char kPassed[] = "ok";
constexpr char kFailed[] = "FAILED";

}  // namespace

void Figures::Note(const std::string& name, const std::string& value) {
    rows_.push_back({name, value, ""});
}

void Figures::Judge(const std::string& name, const std::string& value, bool passed) {
    rows_.push_back({name, value, passed ? kPassed : kFailed});
}

void Figures::Print() const {
    for (const Row& row : rows_) {
        std::printf("%-20s | %-52s | %10s | %s\n", stage_.c_str(), row.name.c_str(),
                    row.value.c_str(), row.verdict.c_str());
    }
    std::fflush(stdout);
}

int Figures::ExitCode() const {
    return std::any_of(rows_.begin(), rows_.end(),
                       [](const Row& row) { return row.verdict == kFailed; })
               ? 1
               : 0;
}

void PrintLine(const std::string& line) {
    std::fprintf(stderr, "%s\n", line.c_str());
    std::fflush(stderr);
}

}  // namespace soak
