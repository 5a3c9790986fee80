// The light reports that show the settings of a host of VelaAgentSettings.hpp.
#pragma once

#include "include/VelaAgentSettings.hpp"
#include "testing/kit/ReportComposer.h"

namespace kit {

// Returns the last light report of a session with these settings. A chat light that breathes is
// requested to, or does so already.
Bytes LightsOf(const vela_agent::Settings& settings, const TouchpadLayout& layout,
               ButtonState::Breathing breathing);

// Returns whether the report shows the settings. Bytes after those of the lights do not matter.
bool ShowsSettings(const Bytes& report, const vela_agent::Settings& settings,
                   const TouchpadLayout& layout);

}  // namespace kit
