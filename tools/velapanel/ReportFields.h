// Reports in words: the fields by name, with what they say.
#pragma once

#include "tools/velapanel/PanelState.h"

namespace velapanel {

std::string ToHex(const virtual_touchpad::Report& report);

// Of the virtual touchpads' layouts; a report of another one is told as that.
ReportLine DescribeOutput(const virtual_touchpad::Report& report);
ReportLine DescribeInput(const virtual_touchpad::Report& report);
ReportLine DescribeFeature(const virtual_touchpad::Report& report);

// The intensity field of a haptics report.
unsigned HapticLevel(const virtual_touchpad::Report& report);

}  // namespace velapanel
