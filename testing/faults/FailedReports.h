// What comes of a call that fails while reports are composed, written, read or understood.
#pragma once

#include "testing/faults/FailedCall.h"
#include "testing/faults/Outcome.h"

namespace faults {

Outcome WriteFails(const FailedCall& call);
Outcome ReadFails(const FailedCall& call);
// Of a write, or of the reader.
Outcome WaitFails(const FailedCall& call);
Outcome OverlappedResultFails(const FailedCall& call);

Outcome MaxUsageListLengthFails(const FailedCall& call);
Outcome GetUsagesFails(const FailedCall& call);
Outcome GetUsageValueFails(const FailedCall& call);

Outcome SetUsageValueFails(const FailedCall& call);
Outcome SetUsagesFails(const FailedCall& call);
Outcome UnsetUsagesFails(const FailedCall& call);

}  // namespace faults
