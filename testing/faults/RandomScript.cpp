#include "testing/faults/RandomScript.h"

#include <iterator>

#include "include/VelaAgent.h"
#include "testing/faults/RandomSteps.h"
#include "testing/faults/ScriptFixture.h"

namespace faults {
namespace {

// Appends the usual opening, with which most random hosts begin.
void AppendOpening(std::vector<Step>& steps) {
    const Step opening[] = {
        {"Init()", [](ScriptFixture&) { return Init(); }},
        {"set callbacks",
         [](ScriptFixture&) {
             SetVelaButtonPressCallback(kit::OnButtonPress);
             SetVelaStatusChangeCallback(kit::OnStatusChange);
             return 0;
         }},
        {"Activate(0)", [](ScriptFixture&) { return Activate(VELA_ACTIVE); }},
        {"EnableFeature(1)", [](ScriptFixture&) { return EnableFeature(1); }},
        {"show all buttons",
         [](ScriptFixture&) {
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
    RandomSource random(seed);
    RandomScript script;
    script.calm = random.Bool() != 0;
    script.steps.push_back({"InitLogger", [](ScriptFixture& fixture) {
                                InitLogger(fixture.LogDirectory().wstring().c_str());
                                return 0;
                            }});
    if (random.Below(4) != 0) AppendOpening(script.steps);
    for (std::uint32_t count = 5 + random.Below(26); count != 0; --count) {
        const bool mishap = !script.calm && random.Below(8) == 0;
        script.steps.push_back(mishap ? DrawMishap(random) : DrawStep(random));
    }
    script.steps.push_back({"UnInit()", [](ScriptFixture&) { return UnInit(); }});
    script.steps.push_back({"UnInitHapticTP()", [](ScriptFixture&) { return UnInitHapticTP(); }});
    // A heartbeat that was stopped still has to log its last line.
    script.steps.push_back(WaitForThreads());
    script.steps.push_back({"UnInitLogger", [](ScriptFixture&) {
                                UnInitLogger();
                                return 0;
                            }});
    return script;
}

}  // namespace faults
