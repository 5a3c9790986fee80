// Reports as text: their fields by name, with their values.
#pragma once

#include "tools/velapanel/PanelState.h"

namespace velapanel {

std::string ToHex(const virtual_touchpad::Report& report);

// These describe reports of the virtual touchpads' layouts, and any other as one of another layout.
ReportLine DescribeOutput(const virtual_touchpad::Report& report);
ReportLine DescribeInput(const virtual_touchpad::Report& report);
ReportLine DescribeFeature(const virtual_touchpad::Report& report);

// The intensity field of a haptics report.
unsigned HapticLevel(const virtual_touchpad::Report& report);

}  // namespace velapanel
