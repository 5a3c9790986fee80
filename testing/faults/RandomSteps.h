// The single steps of a random run.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include "testing/faults/Dice.h"

namespace faults {

// A call of an export with any arguments, a report of the touchpad, or a rest.
Step DrawStep(Dice& dice);
// What a touchpad, its user or another process may do to a session.
Step DrawMishap(Dice& dice);

Step LetThemWork();

// "Activate(5)".
std::string NameOf(const char* deed, std::initializer_list<std::int64_t> arguments = {});

}  // namespace faults
