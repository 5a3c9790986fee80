// Finds the parsed collection of an opaque pointer of HidD_GetPreparsedData.
#pragma once

#include <memory>

#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator::hid {

// Returns null for a pointer that was never returned or is already freed. The result keeps the
// collection alive while another thread frees the preparsed data.
std::shared_ptr<const Collection> FindPreparsedData(PHIDP_PREPARSED_DATA preparsed);

}  // namespace simulator::hid
