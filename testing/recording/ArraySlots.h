// The slots of an array and the index that stands for each usage, from recorded reports.
#pragma once

#include "testing/recording/RebuiltItem.h"

namespace recording {

// Returns false, with the item not placed, when the reports do not tell them: the index of a single
// usage may be 0. The width of a single slot shows in no report:
// it is taken as whole bytes when the slot begins on one, else as wide as the largest index.
bool PlaceArray(RebuiltItem& item);

}  // namespace recording
