// Fills a record's capability catalogue from the platform's capability lists.
#pragma once

#include "hid/HIDInformation.h"
#include "hid/IDiscoveryQuery.h"

namespace vela {

// Both catalogue the capabilities on the usage pages that the query wants, one entry per usage: a
// range of n usages gives n entries. They return true when at least one capability was on a wanted
// page, or when the query wants none; false, with a log line, when none was (the map is empty then)
// or the platform refused the list (what was stored stays in the map). A null query gives false.
bool FillValueCapUsagePages(IDiscoveryQuery* query, const HIDP_CAPS& caps,
                            PHIDP_PREPARSED_DATA preparsed, ValueCapsMap& map);
bool FillButtonCapUsagePages(IDiscoveryQuery* query, const HIDP_CAPS& caps,
                             PHIDP_PREPARSED_DATA preparsed, ButtonCapsMap& map);

}  // namespace vela
