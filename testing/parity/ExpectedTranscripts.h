// The transcripts that are checked in: the simulator's.
#pragma once

#include <set>
#include <string>

#include "testing/parity/Transcript.h"

namespace parity {

// Empty when there is none of the name.
Transcript ExpectedTranscript(const std::string& descriptor);
// The names of all that are there.
std::set<std::string> ExpectedTranscripts();

}  // namespace parity
