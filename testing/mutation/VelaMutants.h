// Functions that mutated sources call: whether a mutant is active, and the larger changes.
// Every mutant is in the program. It is active in a process whose environment variable VELA_MUTANT
// holds its number. The compiler includes this header before every file.
#pragma once

// When VELA_MUTANTS_REACHED names a file, each number that is queried is appended to it, once in a
// process.
bool vela_mutant(unsigned number);

namespace vela_mutants {

// Changes a number or an enumerator; with another type the mutant does not compile and is dropped.
template <typename Value>
Value Next(unsigned number, Value value) {
    return vela_mutant(number) ? static_cast<Value>(static_cast<long long>(value) + 1) : value;
}

// Queries the mutant only where the shift makes a difference: at the limit.
inline bool Shifted(unsigned number, bool result, bool shifted) {
    return result != shifted && vela_mutant(number) ? shifted : result;
}

template <typename Left, typename Right>
bool Less(unsigned number, const Left& left, const Right& right) {
    return Shifted(number, left < right, left <= right);
}
template <typename Left, typename Right>
bool LessOrEqual(unsigned number, const Left& left, const Right& right) {
    return Shifted(number, left <= right, left < right);
}
template <typename Left, typename Right>
bool Greater(unsigned number, const Left& left, const Right& right) {
    return Shifted(number, left > right, left >= right);
}
template <typename Left, typename Right>
bool GreaterOrEqual(unsigned number, const Left& left, const Right& right) {
    return Shifted(number, left >= right, left > right);
}

// Returns a mutex that no other thread uses, in place of the one that is left unlocked.
template <typename Mutex>
Mutex& Unshared(unsigned number, Mutex& mutex) {
    return vela_mutant(number) ? *new Mutex : mutex;
}

// The order of statements 0, 1, 2, ...: the first mutant swaps 0 and 1, the second 1 and 2, and so
// on. Number 0 stands for no mutant.
template <unsigned... numbers>
class Order {
 public:
    Order() {
        for (int i = 0; i <= kSwaps; ++i) steps_[i] = i;
        for (int i = 0; i < kSwaps; ++i) {
            if (kNumbers[i] == 0 || !vela_mutant(kNumbers[i])) continue;
            steps_[i] = i + 1;
            steps_[i + 1] = i;
        }
    }
    const int* begin() const { return steps_; }
    const int* end() const { return steps_ + kSwaps + 1; }

 private:
    static constexpr int kSwaps = sizeof...(numbers);
    static constexpr unsigned kNumbers[] = {numbers...};
    int steps_[kSwaps + 1];
};

}  // namespace vela_mutants
