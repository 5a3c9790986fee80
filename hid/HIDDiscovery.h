// Finds the one HID top-level collection that a query wants.
#pragma once

#include <memory>

#include "hid/HIDInformation.h"
#include "hid/IDiscoveryQuery.h"

namespace vela {

// Walks the present interfaces and returns the record of the first that fits one of the query's
// filters and whose capability catalogue fills. Never null: when nothing fits, or the query is
// null, the record's device path is empty. Reads only; no handle stays open. Keeps no state, so any
// number of threads may scan at once. Throws std::bad_alloc.
std::shared_ptr<CHIDInformation> ScanHIDInformation(IDiscoveryQuery* query);

}  // namespace vela
