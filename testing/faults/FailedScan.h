// What comes of a scan for a touchpad in which a call fails.
#pragma once

#include "testing/faults/FailedCall.h"
#include "testing/faults/Outcome.h"

namespace faults {

Outcome DeviceListFails(const FailedCall& call);
Outcome EnumerationFails(const FailedCall& call);
// The path of an enumerated interface cannot be had.
Outcome PathIsLost(const FailedCall& call);
// An interface cannot be looked at: it is passed over without a word.
Outcome CandidateIsSkipped(const FailedCall& call);
Outcome CapabilityListFails(const FailedCall& call);

}  // namespace faults
