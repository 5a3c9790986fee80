// How a breathing light looks: it swells and fades, evenly, a breath every three seconds.
#pragma once

#include <cmath>

namespace velapanel {

constexpr double kBreathSeconds = 3.0;

// The part of its brightness that the light has, 0 to 1, at this time of the breath that began at
// 0.
inline double BreathLevel(double seconds) {
    constexpr double kFullCircle = 6.283185307179586;
    return (1 - std::cos(kFullCircle * seconds / kBreathSeconds)) / 2;
}

}  // namespace velapanel
