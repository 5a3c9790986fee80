// The HID parser's records as JSON. A pair of usages or indices is a range, a single one is none;
// numbers that people know in hexadecimal are hexadecimal text.
#pragma once

#include "hid/HidHeaders.h"
#include "tools/recording/CallRecord.h"

namespace recording {

Json ToJson(const HIDP_VALUE_CAPS& caps);
Json ToJson(const HIDP_BUTTON_CAPS& caps);
Json ToJson(const HIDP_LINK_COLLECTION_NODE& node);

}  // namespace recording
