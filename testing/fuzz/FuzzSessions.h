// The sessions behind the exports, in place of the agent's one per process: what a session keeps
// for the life of the process, the product string above all, must not go from one input to the
// next.
#pragma once

#include <string>

namespace fuzz {

// From now on the exports drive the session that knows touchpads of this product string. One is
// made for each string and never destroyed.
void UseSessionFor(const std::wstring& productString);

}  // namespace fuzz
