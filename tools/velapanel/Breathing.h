// The animation of a breathing light: it swells and fades evenly, every three seconds.
#pragma once

#include <cmath>

namespace velapanel {

constexpr double kBreathSeconds = 3.0;

// The light's share of its brightness, 0 to 1, `seconds` after the breath began.
inline double BreathLevel(double seconds) {
    constexpr double kFullCircle = 6.283185307179586;
    return (1 - std::cos(kFullCircle * seconds / kBreathSeconds)) / 2;
}

}  // namespace velapanel
