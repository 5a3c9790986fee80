// All that is asked about a descriptor. The questions follow from what the platform lists; every
// other answer leaves them as they are.
#pragma once

#include "testing/parity/Descriptors.h"
#include "testing/parity/Transcript.h"

namespace parity {

Transcript Ask(const Descriptor& descriptor);

}  // namespace parity
