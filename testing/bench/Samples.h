// Many measurements of one thing, with their mean and quantiles.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <vector>

namespace bench {

class Samples {
 public:
    void Add(double value) { values_.push_back(value); }
    void Add(const Samples& others) {
        values_.insert(values_.end(), others.values_.begin(), others.values_.end());
    }

    // Returns the value that `fraction` of all values do not exceed.
    double Quantile(double fraction) const {
        if (values_.empty()) return 0;
        std::vector<double> sorted = values_;
        const auto last = static_cast<double>(sorted.size() - 1);
        const auto place = static_cast<std::ptrdiff_t>(std::llround(fraction * last));
        std::nth_element(sorted.begin(), sorted.begin() + place, sorted.end());
        return sorted[static_cast<std::size_t>(place)];
    }
    double Median() const { return Quantile(0.5); }
    double Tail() const { return Quantile(0.999); }
    double Mean() const {
        const double sum = std::accumulate(values_.begin(), values_.end(), 0.0);
        return values_.empty() ? 0 : sum / static_cast<double>(values_.size());
    }

 private:
    std::vector<double> values_;
};

// The samples of a row's two sides: what is measured, and its limit or peer.
struct Pair {
    Samples measured;
    Samples peer;
};

}  // namespace bench
