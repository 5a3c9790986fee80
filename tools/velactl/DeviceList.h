// The machine's HID collections, and which of them the agent's sessions choose.
#pragma once

#include <string>
#include <vector>

#include "tools/velactl/Render.h"

namespace velactl {

// Which devices are queried for their names. Unlike the rest these are requested from the devices:
// one that is none of ours may answer late or never.
enum class Names { kOfNone, kOfTheChosen, kOfAll };

// Returns a row for each path, in their order: {"vendor", "product", "version", "page", "usage",
// "name" (null when it was not queried), "chosen", "verdict", "path"}.
Json ListDevices(const std::vector<std::wstring>& paths, Names names);

}  // namespace velactl
