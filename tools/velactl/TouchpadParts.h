// The lights and buttons that a touchpad consists of.
#pragma once

#include <string>
#include <vector>

#include "hid/Examination.h"

namespace velactl {

// Returns the names of the parts that the collection's reports lack, as "camera button (input
// 0x0041)".
std::vector<std::string> MissingParts(const vela::Examination& examination);

}  // namespace velactl
