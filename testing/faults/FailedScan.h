// The outcomes of calls that fail during a scan for a touchpad.
#pragma once

#include "testing/faults/FailedCall.h"
#include "testing/faults/Outcome.h"

namespace faults {

Outcome DeviceListFails(const FailedCall& call);
Outcome EnumerationFails(const FailedCall& call);
// The query for the path of an enumerated interface fails.
Outcome PathIsLost(const FailedCall& call);
// The scan skips an interface that it cannot examine, and logs nothing.
Outcome CandidateIsSkipped(const FailedCall& call);
Outcome CapabilityListFails(const FailedCall& call);

}  // namespace faults
