// All that is asked about a descriptor. The questions follow from what the platform lists; every
// other answer leaves them as they are.
#pragma once

#include "tests/parity/Descriptors.h"
#include "tests/parity/Transcript.h"

namespace parity {

Transcript Ask(const Descriptor& descriptor);

}  // namespace parity
