// Tells when the agent has nothing left to do.
#pragma once

namespace faults {

// Returns once every other thread of the process sleeps: each waits for an event, a condition or a
// lock, and none will go on before something is done to it. Needs no knowledge of what the threads
// were doing, nor that they succeeded in it.
void WaitUntilOthersSleep();

}  // namespace faults
