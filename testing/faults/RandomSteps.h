// The single steps of a random run.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include "testing/faults/RandomSource.h"

namespace faults {

// A call of an export with any arguments, a report of the touchpad, or a rest.
Step DrawStep(RandomSource& random);
// What a touchpad, its user or another process may do to a session.
Step DrawMishap(RandomSource& random);

Step WaitForThreads();

// "Activate(5)".
std::string NameOf(const char* function, std::initializer_list<std::int64_t> arguments = {});

}  // namespace faults
