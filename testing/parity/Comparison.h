// One descriptor's two transcripts side by side.
#pragma once

#include <string>
#include <vector>

#include "testing/parity/Transcript.h"

namespace parity {

// An answer that is not the same. Empty is the answer of a platform that did not give it, or did
// not come to the question.
struct Difference {
    std::string descriptor;
    Entry simulator;
    Entry wine;
    std::string answer;  // which one of the entry

    std::string OfSimulator() const { return simulator.ValueOf(answer); }
    std::string OfWine() const { return wine.ValueOf(answer); }
};

std::vector<Difference> Compare(const std::string& descriptor, const Transcript& simulator,
                                const Transcript& wine);

}  // namespace parity
