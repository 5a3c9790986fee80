// What has to hold once a host has closed its sessions, whatever failed meanwhile.
#pragma once

#include <string>

#include "testing/faults/ScriptFixture.h"

namespace faults {

// Handles and memory that the agent still holds and should not; empty when all is well. What a
// failed CloseHandle or free left behind is the platform's, not the agent's.
std::string Leftovers(ScriptFixture& fixture);

// On a thread of its own, as if nothing had happened before: the next session opens, lights its
// lights, reports a press and closes, and the haptic session likewise. Every lock of the agent is
// taken on the way. Empty when all went well. The watch is stopped.
std::string Reopen(ScriptFixture& fixture);

// The process has started a heartbeat, whose thread object nothing joins before the exit.
bool HeartbeatWasStarted(const ScriptFixture& fixture);

}  // namespace faults
