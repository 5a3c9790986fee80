// Records all calls on a descriptor. Which calls they are depends only on the lists that the
// platform returns, not on its other results.
#pragma once

#include "testing/parity/Descriptors.h"
#include "testing/parity/Transcript.h"

namespace parity {

Transcript RecordTranscript(const Descriptor& descriptor);

}  // namespace parity
