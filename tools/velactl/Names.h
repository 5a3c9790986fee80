// The words of the command line for the numbers of VelaAgent.h.
#pragma once

#include <map>
#include <string>

#include "VelaAgent.h"

namespace velactl {

// The names are used for input and output.
const std::map<std::string, VelaButton>& Buttons();
const std::map<std::string, bool>& Switch();  // on, off

std::string ButtonName(std::uint32_t button);
std::string SwitchName(bool on);
// Returns "normal", "disabled", ..., or "activation 5" for a number that the host passed to
// Activate.
std::string StatusName(std::uint32_t status);

}  // namespace velactl
