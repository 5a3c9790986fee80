// Records one HID collection.
#pragma once

#include <string>

#include "tools/velactl/Render.h"

namespace velactl {

// Returns {"attributes", "strings", "capabilities", "preparsedData", "calls"}; what could not be
// read is missing. `wantsStrings` is called with the vendor.
Json RecordCollection(const std::wstring& path, bool (*wantsStrings)(std::uint16_t vendor));

}  // namespace velactl
