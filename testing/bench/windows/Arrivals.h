// How soon a touchpad is lit, by the clock of Nanoseconds: from the moment in which it is plugged
// in, or in which the machine resumes.
#pragma once

#include "include/VelaAgentWatch.hpp"

namespace bench {

// Returns once this process is notified of devices, which on Wine begins a little after it has
// asked.
void WaitUntilNotified();

// Each returns the nanoseconds, and leaves the touchpad unplugged.

// Until the touchpad has the light report that a watch sends once it has found it.
double ArrivalUntilLit(const vela_agent::Library& library);
// Until a window without a watch is notified of the touchpad.
double ArrivalUntilNotified();
// Until CreateFile has opened it on that notification.
double ArrivalUntilOpened();

// Each returns the nanoseconds with a touchpad that is plugged in all the time.

// From the message of the resume until the touchpad has been dark and is lit again.
double ResumeUntilLit(const vela_agent::Library& library);
// The same of a host that closes its session, opens one and makes the same calls.
double ReopeningUntilLit(const vela_agent::Library& library);

}  // namespace bench
