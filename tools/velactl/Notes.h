// The messages that the agent's discovery code would have logged, kept for the user.
#pragma once

#include <string>
#include <vector>

namespace velactl {

// Returns the messages since the last call, oldest first.
std::vector<std::string> TakeNotes();

}  // namespace velactl
