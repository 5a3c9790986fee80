// What a host and its touchpad do in a run, step by step.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace faults {

class ScriptFixture;

struct Step {
    std::string name;
    std::function<std::int64_t(ScriptFixture&)> run;
};

struct Script {
    std::string name;
    virtual_touchpad::TouchpadLayout layout;
    // Enumerated before the device that the script is about, which a scan then meets second.
    enum class Subject { Touchpad, HapticTouchpad } subject = Subject::Touchpad;
    std::vector<Step> steps;
    // Calls of earlier steps are left alone: another script is about them.
    std::string firstStepToFail;
    std::size_t leastCalls = 0;  // to fail; fewer mean that something was left out
    std::size_t parts = 1;       // tests that share the calls
};

// "Meeting": every export of the touchpad session, presses, state events, firmware states.
// "DetachableMeeting": the same in short, on a touchpad that can be taken off.
// "Unplugging", "DetachableUnplugging": the touchpad is taken away from an open session.
// "HapticSession".
const std::vector<Script>& AllScripts();

}  // namespace faults
