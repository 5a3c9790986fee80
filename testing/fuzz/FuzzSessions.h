// Replaces the agent's one session per process: what a session keeps for the life of the process,
// above all the product string, must not carry over from one input to the next.
#pragma once

#include <string>

namespace fuzz {

// Lets the exports use the session for touchpads of this product string. A session is made for each
// string and never destroyed.
void UseSessionFor(const std::wstring& productString);

}  // namespace fuzz
