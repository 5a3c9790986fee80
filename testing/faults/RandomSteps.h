// Draws the single steps of a random run.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include "testing/faults/RandomSource.h"

namespace faults {

// Draws a call of an export with any arguments, an input report, or a wait for the threads.
Step DrawStep(RandomSource& random);
// Draws something that a touchpad, its user or another process may do to a session.
Step DrawMishap(RandomSource& random);

Step WaitForThreads();

// Returns "Activate(5)" and the like.
std::string NameOf(const char* function, std::initializer_list<std::int64_t> arguments = {});

}  // namespace faults
