// The outcomes of calls that fail while a session is opened, or a feature read or written.
#pragma once

#include "testing/faults/FailedCall.h"
#include "testing/faults/Outcome.h"

namespace faults {

Outcome CreateFileFails(const FailedCall& call);
Outcome CreateEventFails(const FailedCall& call);
Outcome OpenMutexFails(const FailedCall& call);
Outcome GetProductStringFails(const FailedCall& call);
Outcome GetPreparsedDataFails(const FailedCall& call);
Outcome GetFeatureFails(const FailedCall& call);
Outcome SetFeatureFails(const FailedCall& call);
// The value is that of a feature report.
Outcome SetFeatureValueFails(const FailedCall& call);
Outcome GetFeatureValueFails(const FailedCall& call);

}  // namespace faults
