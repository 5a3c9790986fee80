// The contents of the panel: the lights of the touchpad and its latest reports.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/control/TouchpadControl.h"

namespace velapanel {

// One report, for the list below the touchpad.
struct ReportLine {
    std::string kind;    // "output", "input" or "feature"
    std::string bytes;   // in hexadecimal, the report id first
    std::string fields;  // the same as named fields
};

struct PanelState {
    bool isPlugged = false;
    virtual_touchpad::Lights lights;
    std::optional<unsigned> hapticLevel;  // while a haptic touchpad is plugged in
    std::vector<ReportLine> reports;      // the newest first
};

}  // namespace velapanel
