// From the opaque pointers of HidD_GetPreparsedData back to the parsed collection.
#pragma once

#include <memory>

#include "testing/simulator/hid/ReportDescriptor.h"

namespace simulator::hid {

// Null for what was never handed out or is freed already. The result keeps the collection alive
// while another thread frees the preparsed data.
std::shared_ptr<const Collection> FindPreparsedData(PHIDP_PREPARSED_DATA preparsed);

}  // namespace simulator::hid
