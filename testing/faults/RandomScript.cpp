#include "testing/faults/RandomScript.h"

#include <iterator>

#include "include/VelaAgent.h"
#include "testing/faults/RandomSteps.h"
#include "testing/faults/Stage.h"

namespace faults {
namespace {

// Most hosts begin as they should.
void AppendOpening(std::vector<Step>& steps) {
    const Step opening[] = {
        {"Init()", [](Stage&) { return Init(); }},
        {"set callbacks",
         [](Stage&) {
             SetVelaButtonPressCallback(kit::OnButtonPress);
             SetVelaStatusChangeCallback(kit::OnStatusChange);
             return 0;
         }},
        {"Activate(0)", [](Stage&) { return Activate(VELA_ACTIVE); }},
        {"EnableFeature(1)", [](Stage&) { return EnableFeature(1); }},
        {"show all buttons",
         [](Stage&) {
             for (std::uint32_t button = 0; button < 4; ++button) {
                 EnableSingleButton(button, 1);
                 SetButtonVisible(button, 1);
             }
             return 0;
         }},
    };
    steps.insert(steps.end(), std::begin(opening), std::end(opening));
}

}  // namespace

RandomScript MakeRandomScript(std::uint64_t seed) {
    Dice dice(seed);
    RandomScript script;
    script.calm = dice.Bool() != 0;
    script.steps.push_back({"InitLogger", [](Stage& stage) {
                                InitLogger(stage.LogDirectory().wstring().c_str());
                                return 0;
                            }});
    if (dice.Below(4) != 0) AppendOpening(script.steps);
    for (std::uint32_t count = 5 + dice.Below(26); count != 0; --count) {
        const bool mishap = !script.calm && dice.Below(8) == 0;
        script.steps.push_back(mishap ? DrawMishap(dice) : DrawStep(dice));
    }
    script.steps.push_back({"UnInit()", [](Stage&) { return UnInit(); }});
    script.steps.push_back({"UnInitHapticTP()", [](Stage&) { return UnInitHapticTP(); }});
    // A heartbeat that was told to stop has its last line to write.
    script.steps.push_back(LetThemWork());
    script.steps.push_back({"UnInitLogger", [](Stage&) {
                                UnInitLogger();
                                return 0;
                            }});
    return script;
}

}  // namespace faults
