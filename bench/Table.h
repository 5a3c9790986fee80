// The lines of the one table that scripts/bench prints.
#pragma once

#include <optional>
#include <string>

#include "bench/Samples.h"

namespace bench {

struct Row {
    std::string what;
    std::string measured;
    std::string limit;
    std::string ratio;
    std::string target;
    std::optional<bool> met;  // none: a figure without a target
};

void Print(const Row& row);

std::string Microseconds(double nanoseconds);
std::string Number(double value, int digits = 2);

// The ratio of the medians; both tails (99.9 %) stand behind their medians.
void PrintMedians(const std::string& what, const std::string& peer, const Pair& pair,
                  std::optional<double> atMost);
void PrintTails(const std::string& what, const std::string& peer, const Pair& pair, double atMost);

}  // namespace bench
