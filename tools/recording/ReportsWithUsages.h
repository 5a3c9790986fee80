// The place of a capability's bits in its report, which no capability record tells: the HID parser
// sets the usages in an empty report, which is recorded as it comes back. Nothing is sent.
#pragma once

#include "hid/HidHeaders.h"
#include "tools/recording/CallRecord.h"

namespace recording {

// The collection's reports of one type.
struct ReportType {
    PHIDP_PREPARSED_DATA preparsed;
    HIDP_REPORT_TYPE type;
    USHORT length;
};

// Returns {"first"}: the report with every bit of the first usage set.
Json ReportsWith(const ReportType& reports, const HIDP_VALUE_CAPS& caps);
// Returns {"first", "last"}: the reports with only the first and only the last usage set. An array,
// whose slots hold indices of usages, has two more: "full", with its usages set one after the other
// until no slot is free, and "sharesSlots", whether filling the array of `previous`, the capability
// before it or null, leaves no slot for this one. In an array usage 0 is left out: its index may be
// that of a free slot.
Json ReportsWith(const ReportType& reports, const HIDP_BUTTON_CAPS& caps,
                 const HIDP_BUTTON_CAPS* previous);

}  // namespace recording
