// The string or designator indices that a descriptor declares for the usages of a main item.
#pragma once

#include <cstddef>
#include <vector>

#include <windows.h>

namespace simulator::hid {

// One index, or one minimum and maximum. Two equal values are still a range.
struct IndexRange {
    USHORT minimum = 0;  // or the single index; 0: none
    USHORT maximum = 0;  // for a range only
    bool isRange = false;
};

// The first index or pair belongs to the first usage or range of usages, and so on.
class DeclaredIndices {
 public:
    void AddIndex(USHORT index) { indices_.push_back({index, 0, false}); }
    void AddMinimum(USHORT minimum) { indices_.push_back({minimum, minimum, true}); }
    // A maximum without a minimum is ignored: no report depends on it.
    void AddMaximum(USHORT maximum) {
        if (!indices_.empty() && indices_.back().isRange) indices_.back().maximum = maximum;
    }

    IndexRange OfDeclaration(std::size_t position) const {
        return position < indices_.size() ? indices_[position] : IndexRange{};
    }

 private:
    std::vector<IndexRange> indices_;
};

}  // namespace simulator::hid
