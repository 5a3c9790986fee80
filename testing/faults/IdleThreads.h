// Detects that the agent has nothing left to do.
#pragma once

namespace faults {

// Returns once every other thread of the process sleeps: each waits for an event, a condition or a
// lock, and only the caller can wake one. Works whatever the threads were doing, and also when they
// failed.
void WaitUntilOthersSleep();

}  // namespace faults
