// Records what the HID parser tells of a top-level collection. Nothing is requested from the
// device.
#pragma once

#include "hid/HidHeaders.h"
#include "tools/recording/CallRecord.h"

namespace recording {

// Returns {"usagePage", "usage", "linkCollections", "input", "output", "feature"}, and in each of
// the last three "length", "dataIndices", "buttons" and "values" with the records in the parser's
// order. README.md beside this file documents every member. Parts that the parser refused are
// missing; the calls tell why.
Json RecordCapabilities(PHIDP_PREPARSED_DATA preparsed, CallRecord& calls);

}  // namespace recording
