// Checks that must pass once a host has closed its sessions, whatever failed before.
#pragma once

#include <string>

#include "testing/faults/ScriptFixture.h"

namespace faults {

// Returns the handles and memory that the agent leaked; empty when there are none. What a failed
// CloseHandle or free left behind is not counted.
std::string Leftovers(ScriptFixture& fixture);

// Stops the watch, then checks on a new thread that the next session opens, shows its lights,
// reports a press and closes, and the haptic session likewise. This takes every lock of the agent.
// Returns what went wrong; empty when nothing did.
std::string Reopen(ScriptFixture& fixture);

// Returns whether the process has started a heartbeat, whose thread object is never joined.
bool HeartbeatWasStarted(const ScriptFixture& fixture);

}  // namespace faults
