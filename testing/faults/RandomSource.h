// Makes the choices of a random run, the same ones for the same seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

#include "testing/faults/Script.h"

namespace faults {

class RandomSource {
 public:
    explicit RandomSource(std::uint64_t seed) : engine_(seed) {}

    // Returns 0 to count - 1.
    std::uint32_t Below(std::uint32_t count) {
        return static_cast<std::uint32_t>(engine_() % count);
    }
    std::int32_t Bool() { return static_cast<std::int32_t>(Below(2)); }
    template <std::size_t count>
    std::uint32_t OneOf(const std::uint32_t (&values)[count]) {
        return values[Below(count)];
    }

 private:
    std::mt19937_64 engine_;
};

// A kind of step with its weight among the others. `make` draws the step's arguments.
struct Choice {
    std::uint32_t weight;
    Step (*make)(RandomSource&);
};

template <std::size_t count>
Step Draw(const Choice (&choices)[count], RandomSource& random) {
    std::uint32_t sum = 0;
    for (const Choice& choice : choices) sum += choice.weight;
    std::uint32_t left = random.Below(sum);
    const Choice* choice = choices;
    for (; left >= choice->weight; ++choice) left -= choice->weight;
    return choice->make(random);
}

}  // namespace faults
