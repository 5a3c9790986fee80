// The checked-in transcripts of the simulator.
#pragma once

#include <set>
#include <string>

#include "testing/parity/Transcript.h"

namespace parity {

// Returns an empty transcript when there is none of that name.
Transcript ExpectedTranscript(const std::string& descriptor);
// Returns the names of all checked-in transcripts.
std::set<std::string> ExpectedTranscripts();

}  // namespace parity
