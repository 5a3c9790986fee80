// The platform's records as answers of a transcript.
#pragma once

#include "testing/parity/PreparsedData.h"
#include "testing/parity/Transcript.h"

namespace parity {

std::vector<Entry::Answer> AnswersOf(const HIDP_CAPS& caps);
// Of the union only the half that IsRange names: what the other half holds is nobody's promise.
std::vector<Entry::Answer> AnswersOf(const HIDP_BUTTON_CAPS& caps);
std::vector<Entry::Answer> AnswersOf(const HIDP_VALUE_CAPS& caps);

}  // namespace parity
