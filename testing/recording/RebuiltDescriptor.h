// A report descriptor with the capabilities of a recorded collection.
#pragma once

#include <string>
#include <vector>

#include "tools/recording/CallRecord.h"

namespace recording {

struct RebuiltDescriptor {
    Bytes bytes;
    // What no descriptor can be made of, or had to be guessed, a line each.
    std::vector<std::string> notes;
};

// `capabilities` is the member of a recorded collection. Throws Json::exception or
// std::invalid_argument when it is not of this format.
RebuiltDescriptor RebuildDescriptor(const Json& capabilities);

// Parses the descriptor with the simulator's parser, records it, and returns a line for each member
// that differs from the recorded one, as "input/buttons/0/usages: recorded ..., rebuilt ...".
std::vector<std::string> Differences(const Json& capabilities, const Bytes& descriptor);

}  // namespace recording
