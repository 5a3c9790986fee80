// Replays a recorded machine on the simulated platform: plugs its collections in, lets the agent
// find and open its touchpad, and holds a meeting. One replay a process, as the agent keeps one
// session.
#pragma once

#include <string>
#include <vector>

#include "tools/recording/CallRecord.h"

namespace recording {

// Returns
//   "notRebuilt"  a line for each part of a collection that the simulated one does not have
//   "touchpad"    the path of the collection that the agent finds as its touchpad; null: none
//   "haptic"      the same for the haptic touchpad
//   "meeting"     what HoldMeeting returns; null without a touchpad
//   "hapticLevel" what SetHapticLevel returns; null without a haptic touchpad
// Throws Json::exception or std::invalid_argument when the recording is not of this format.
Json Replay(const Json& machine);

// Returns the path of the collection that the agent chose as such on the recorded machine, as
// `kind` "touchpad" or "haptic touchpad"; null: none.
Json RecordedChoice(const Json& machine, const std::string& kind);

// Compares the meetings of a recording and of its replay, a line for each difference. A recorded
// output report may be shorter: Wine's class driver cuts reports to their own length, and the
// simulated one keeps the writer's zeros up to the collection's.
std::vector<std::string> MeetingDifferences(const Json& recorded, const Json& replayed);

}  // namespace recording
