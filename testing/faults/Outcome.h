// The events of a run in which one platform call fails, as the difference to a run without failure.
#pragma once

#include <string>
#include <vector>

#include "testing/faults/CallWatch.h"
#include "testing/simulator/Calls.h"

namespace faults {

struct Outcome {
    std::vector<std::string> added;
    std::vector<std::string> missing;
    // False when the failure loses input, which changes the session's later state: then only the
    // logged warnings and errors are compared.
    bool restIsTheSame = true;
};

// Returns the outcome when calls[index] fails. `calls` are those of a run without a failure.
Outcome OutcomeOf(const std::vector<WatchedCall>& calls, std::size_t index,
                  const simulator::Fault& fault);

// Returns what is wrong with `events`; empty when nothing is. Both lists are sorted.
std::string Compare(const std::vector<std::string>& events, const std::vector<std::string>& clean,
                    const Outcome& outcome);

}  // namespace faults
