// Many measurements of one thing, in nanoseconds, and what they come to.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace bench {

class Samples {
 public:
    void Add(double nanoseconds) { values_.push_back(nanoseconds); }
    void Add(const Samples& others) {
        values_.insert(values_.end(), others.values_.begin(), others.values_.end());
    }

    // The value that `fraction` of all values do not exceed.
    double Quantile(double fraction) const {
        if (values_.empty()) return 0;
        std::vector<double> sorted = values_;
        const auto last = static_cast<double>(sorted.size() - 1);
        const auto place = static_cast<std::ptrdiff_t>(fraction * last + 0.5);
        std::nth_element(sorted.begin(), sorted.begin() + place, sorted.end());
        return sorted[static_cast<std::size_t>(place)];
    }
    double Median() const { return Quantile(0.5); }
    double Tail() const { return Quantile(0.999); }
    std::size_t Count() const { return values_.size(); }

 private:
    std::vector<double> values_;
};

// What is measured, and the limit or peer beside it. They take turns, so that whatever else the
// machine does meets both.
struct Pair {
    Samples measured;
    Samples peer;
};

template <typename Measured, typename Peer>
Pair TakeTurns(std::size_t rounds, Measured&& measured, Peer&& peer) {
    Pair pair;
    for (std::size_t round = 0; round < rounds; ++round) {
        pair.measured.Add(measured());
        pair.peer.Add(peer());
    }
    return pair;
}

}  // namespace bench
