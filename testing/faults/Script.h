// The steps of a host and its touchpad in a run.
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
    // The device under test is enumerated second, after the other touchpad.
    enum class Subject { Touchpad, HapticTouchpad } subject = Subject::Touchpad;
    std::vector<Step> steps;
    // Calls of earlier steps do not fail: another script tests them.
    std::string firstStepToFail;
    std::size_t leastCalls = 0;  // fewer calls to fail mean that something was left out
    std::size_t parts = 1;       // the number of tests that share the calls
};

// "Meeting": every export of the touchpad session, presses, state events, firmware states.
// "DetachableMeeting": the same in short, on a detachable touchpad.
// "Unplugging", "DetachableUnplugging": the touchpad is unplugged during an open session.
// "HapticSession".
const std::vector<Script>& AllScripts();

}  // namespace faults
