// The known differences between Wine and Windows. Each must occur: one that Wine has fixed must be
// removed from the list.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "testing/parity/Comparison.h"

namespace parity {

struct KnownDifference {
    std::string name;
    std::string why;                    // reason that the simulator's result is that of Windows
    std::set<std::string> results;      // names of those it covers; none: all
    std::set<std::string> descriptors;  // in which it occurs; none: in any
    bool (*concerns)(const Difference& difference);

    bool Covers(const Difference& difference) const;
};

const std::vector<KnownDifference>& KnownDifferences();
// Returns the first that covers it, or null.
const KnownDifference* FindKnown(const Difference& difference);

}  // namespace parity
