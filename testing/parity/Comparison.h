// The comparison of the two transcripts of a descriptor.
#pragma once

#include <string>
#include <vector>

#include "testing/parity/Transcript.h"

namespace parity {

// A result that differs. It is empty on a platform without this result or this call.
struct Difference {
    std::string descriptor;
    Entry simulator;
    Entry wine;
    std::string result;  // its name in the entry

    std::string OfSimulator() const { return simulator.ValueOf(result); }
    std::string OfWine() const { return wine.ValueOf(result); }
};

std::vector<Difference> Compare(const std::string& descriptor, const Transcript& simulator,
                                const Transcript& wine);

}  // namespace parity
