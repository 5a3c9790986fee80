// Capabilities and link collections as the platform's records.
#pragma once

#include "testing/simulator/hid/Collection.h"

namespace simulator::hid {

// `length` is the size of the list on entry, and the number of capabilities of the report type on
// return. A list that is too small is left unchanged.
NTSTATUS GetValueCaps(const Collection& collection, HIDP_REPORT_TYPE type, HIDP_VALUE_CAPS* list,
                      USHORT& length);
NTSTATUS GetButtonCaps(const Collection& collection, HIDP_REPORT_TYPE type, HIDP_BUTTON_CAPS* list,
                       USHORT& length);
// `length` likewise; the top-level collection is the first node.
NTSTATUS GetLinkCollectionNodes(const Collection& collection, HIDP_LINK_COLLECTION_NODE* list,
                                ULONG& length);

}  // namespace simulator::hid
