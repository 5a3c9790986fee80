// The outcomes of calls that fail while reports are composed, written, read or parsed.
#pragma once

#include "testing/faults/FailedCall.h"
#include "testing/faults/Outcome.h"

namespace faults {

Outcome WriteFails(const FailedCall& call);
Outcome ReadFails(const FailedCall& call);
// The wait for a write or the reader's wait fails.
Outcome WaitFails(const FailedCall& call);
Outcome OverlappedResultFails(const FailedCall& call);

Outcome MaxUsageListLengthFails(const FailedCall& call);
Outcome GetUsagesFails(const FailedCall& call);
Outcome GetUsageValueFails(const FailedCall& call);

Outcome SetUsageValueFails(const FailedCall& call);
Outcome SetUsagesFails(const FailedCall& call);
Outcome UnsetUsagesFails(const FailedCall& call);

}  // namespace faults
