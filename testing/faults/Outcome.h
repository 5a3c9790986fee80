// What a host sees when one platform call of a script fails: the difference to a run in which none
// does.
#pragma once

#include <string>
#include <vector>

#include "testing/faults/CallWatch.h"
#include "testing/simulator/Calls.h"

namespace faults {

struct Outcome {
    std::vector<std::string> added;
    std::vector<std::string> missing;
    // False: the failure takes input away from the session, and what the script does later meets
    // another state. Then only the warnings and errors logged are compared.
    bool restIsTheSame = true;
};

// `calls`: the calls of the script's run without a failure; the one at `index` fails.
Outcome OutcomeOf(const std::vector<WatchedCall>& calls, std::size_t index,
                  const simulator::Fault& fault);

// What is wrong with `events`, empty when nothing is. Both lists sorted.
std::string Compare(const std::vector<std::string>& events, const std::vector<std::string>& clean,
                    const Outcome& outcome);

}  // namespace faults
