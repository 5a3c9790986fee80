// The words of the command line for the numbers of VelaAgent.h.
#pragma once

#include <map>
#include <string>

#include "VelaAgent.h"

namespace velactl {

// As they are typed, and printed.
const std::map<std::string, VelaButton>& Buttons();
const std::map<std::string, bool>& Switch();  // on, off

std::string ButtonName(std::uint32_t button);
std::string SwitchName(bool on);
// "normal", "disabled"; "activation 5" for what the host gave Activate itself.
std::string StatusName(std::uint32_t status);

}  // namespace velactl
