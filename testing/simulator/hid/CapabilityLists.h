// Capabilities as the platform's records.
#pragma once

#include "testing/simulator/hid/Collection.h"

namespace simulator::hid {

// `length` is the room of the list going in, and the number of capabilities of the report type
// coming out. A list that is too small is left alone.
NTSTATUS GetValueCaps(const Collection& collection, HIDP_REPORT_TYPE type, HIDP_VALUE_CAPS* list,
                      USHORT& length);
NTSTATUS GetButtonCaps(const Collection& collection, HIDP_REPORT_TYPE type, HIDP_BUTTON_CAPS* list,
                       USHORT& length);

}  // namespace simulator::hid
