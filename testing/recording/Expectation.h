// What the test of a recording expects: the member "expected" of the recording.
#pragma once

#include <string>
#include <vector>

#include "tools/recording/CallRecord.h"

namespace recording {

// Replays the machine and sets "expected": "differences" with the lines that are returned, and
// "meeting" and "hapticLevel", unless the recording has those of the machine itself. Returns a line
// for each part that is not rebuilt, and for each other difference of the simulated machine:
// another touchpad that the agent finds, another report or notification in the meeting.
std::vector<std::string> AddExpectation(Json& machine);

// Replays the machine, and returns a line for each difference that is not expected, and for each
// expected one that is missing.
std::vector<std::string> Unexpected(const Json& machine);

}  // namespace recording
