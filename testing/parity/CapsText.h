// The platform's caps as results of a transcript.
#pragma once

#include "testing/parity/PreparsedData.h"
#include "testing/parity/Transcript.h"

namespace parity {

std::vector<Entry::Result> ResultsOf(const HIDP_CAPS& caps);
std::vector<Entry::Result> ResultsOf(const HIDP_LINK_COLLECTION_NODE& node);
// Contains only the half of the union that IsRange selects; the other half is undefined.
std::vector<Entry::Result> ResultsOf(const HIDP_BUTTON_CAPS& caps);
std::vector<Entry::Result> ResultsOf(const HIDP_VALUE_CAPS& caps);

}  // namespace parity
