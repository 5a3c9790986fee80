// Where Wine answers otherwise than Windows. Each has to occur: one that Wine has mended is to be
// taken out.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "testing/parity/Comparison.h"

namespace parity {

struct KnownDifference {
    std::string name;
    std::string why;                    // that the simulator's answer is the one of Windows
    std::set<std::string> answers;      // which it concerns; none: all
    std::set<std::string> descriptors;  // in which it occurs; none: in any
    bool (*concerns)(const Difference& difference);

    bool Covers(const Difference& difference) const;
};

const std::vector<KnownDifference>& KnownDifferences();
// The first that covers it, null if none does.
const KnownDifference* FindKnown(const Difference& difference);

}  // namespace parity
