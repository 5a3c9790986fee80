#include "testing/faults/Script.h"

#include "include/VelaAgent.h"
#include "testing/faults/ScriptFixture.h"
#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"

namespace faults {
namespace {

using namespace virtual_touchpad::events;

constexpr const wchar_t* kDetachable = L"Vela Detachable Touchpad";

Step Input(const std::string& name, const std::vector<std::uint16_t>& usages,
           std::uint8_t firmwareState = 0) {
    return {name, [usages, firmwareState](ScriptFixture& fixture) {
                fixture.Touchpad().SendInput(kit::InputReport(usages, firmwareState));
                return 0;
            }};
}

Step Brightness(const std::string& name, std::uint32_t level) {
    return {name, [level](ScriptFixture&) {
                SetVelaBrightness(level);
                return GetVelaBrightness();
            }};
}

Step ShowButton(const std::string& name, std::uint32_t button) {
    return {name, [button](ScriptFixture&) {
                return EnableSingleButton(button, 1) + SetButtonVisible(button, 1);
            }};
}

const Step kInitLogger{"InitLogger", [](ScriptFixture& fixture) {
                           InitLogger(fixture.LogDirectory().wstring().c_str());
                           return 0;
                       }};
const Step kUnInitLogger{"UnInitLogger", [](ScriptFixture&) {
                             UnInitLogger();
                             return 0;
                         }};
const Step kSetCallbacks{"set callbacks", [](ScriptFixture&) {
                             SetVelaButtonPressCallback(kit::OnButtonPress);
                             SetVelaStatusChangeCallback(kit::OnStatusChange);
                             return 0;
                         }};
const Step kIsVelaPresent{"IsVelaPresent", [](ScriptFixture&) { return IsVelaPresent(); }};
const Step kInit{"Init", [](ScriptFixture&) { return Init(); }};
const Step kInitAgain{"Init again", [](ScriptFixture&) { return Init(); }};
const Step kIsDetachable{"IsDetachable", [](ScriptFixture&) { return IsDetachable(); }};
const Step kActivate{"Activate(0)", [](ScriptFixture&) { return Activate(0); }};
const Step kEnableFeature{"EnableFeature(1)", [](ScriptFixture&) { return EnableFeature(1); }};
const Step kGetClickMode{"GetClickMode", [](ScriptFixture&) { return GetClickMode(); }};
const Step kSetClickMode{"SetClickMode(1, 300)",
                         [](ScriptFixture&) { return SetClickMode(1, 300); }};
const Step kIsVelaPresentWhileOpen{"IsVelaPresent while open",
                                   [](ScriptFixture&) { return IsVelaPresent(); }};
const Step kSetButtonLight{"SetButtonLight(0, 1)",
                           [](ScriptFixture&) { return SetButtonLight(0, 1); }};
const Step kBrightnessWhileDisabled = Brightness("SetVelaBrightness(7) while disabled", 7);
const Step kUnInit{"UnInit", [](ScriptFixture&) { return UnInit(); }};

Script Meeting() {
    Script script;
    script.name = "Meeting";
    script.steps = {
        kInitLogger,
        kIsVelaPresent,
        kInit,
        kInitAgain,
        kSetCallbacks,
        kIsDetachable,
        kActivate,
        kEnableFeature,
        ShowButton("show camera", 0),
        ShowButton("show chat", 2),
        ShowButton("show microphone", 1),
        ShowButton("show share screen", 3),
        kSetButtonLight,
        {"SetButtonLight(7, 1)", [](ScriptFixture&) { return SetButtonLight(7, 1); }},
        Input("camera pressed", {kCameraButton}),
        Input("chat pressed", {kChatButton}),
        {"EnableChatBreathing(1)", [](ScriptFixture&) { return EnableChatBreathing(1); }},
        {"SetButtonBreathing(2, 1)", [](ScriptFixture&) { return SetButtonBreathing(2, 1); }},
        Brightness("SetVelaBrightness(9)", 9),
        {"SetButtonBreathing(2, 0)", [](ScriptFixture&) { return SetButtonBreathing(2, 0); }},
        Input("gesture", {kGesture}),
        kBrightnessWhileDisabled,
        Input("sync", {kSync}),
        Input("disabled", {kDisabled}),
        Input("enabled", {kEnabled}),
        Input("firmware state with flags", {}, 0xA0),
        Input("firmware state without flags", {}, 0),
        kSetClickMode,
        kGetClickMode,
        {"SetClickMode(0, 300)", [](ScriptFixture&) { return SetClickMode(0, 300); }},
        {"GetClickMode of mode 0", [](ScriptFixture&) { return GetClickMode(); }},
        {"SetClickMode(7, 5)", [](ScriptFixture&) { return SetClickMode(7, 5); }},
        {"UpdateVelaState", [](ScriptFixture&) { return UpdateVelaState(); }},
        {"questions",
         [](ScriptFixture&) {
             return IsFeatureEnabled() + IsActivated() + IsSingleButtonEnabled(0) +
                    IsChatBreathingEnabled() + IsSupportBiDirectionSwipe();
         }},
        kIsVelaPresentWhileOpen,
        {"Activate(5)", [](ScriptFixture&) { return Activate(5); }},
        {"Activate(1)", [](ScriptFixture&) { return Activate(1); }},
        Input("microphone pressed", {kMicrophoneButton}),
        {"Activate(4)", [](ScriptFixture&) { return Activate(4); }},
        {"EnableFeature(0)", [](ScriptFixture&) { return EnableFeature(0); }},
        kUnInit,
        kUnInitLogger,
    };
    script.firstStepToFail = script.steps.front().name;
    script.leastCalls = 500;
    script.parts = 36;
    return script;
}

Script DetachableMeeting() {
    Script script;
    script.name = "DetachableMeeting";
    script.layout.productString = kDetachable;
    script.steps = {
        kInitLogger,
        kIsVelaPresent,
        kInit,
        kInitAgain,
        kSetCallbacks,
        kIsDetachable,
        kActivate,
        kEnableFeature,
        ShowButton("show chat", 2),
        {"EnableChatBreathing(1)", [](ScriptFixture&) { return EnableChatBreathing(1); }},
        {"SetButtonBreathing(2, 1)", [](ScriptFixture&) { return SetButtonBreathing(2, 1); }},
        Input("gesture", {kGesture}),
        kBrightnessWhileDisabled,
        Input("sync", {kSync}),
        kSetClickMode,
        kGetClickMode,
        {"UpdateVelaState", [](ScriptFixture&) { return UpdateVelaState(); }},
        kIsVelaPresentWhileOpen,
        {"Activate(5)", [](ScriptFixture&) { return Activate(5); }},
        {"Activate(1)", [](ScriptFixture&) { return Activate(1); }},
        {"Activate(4)", [](ScriptFixture&) { return Activate(4); }},
        kUnInit,
        kUnInitLogger,
    };
    script.firstStepToFail = kIsDetachable.name;
    script.leastCalls = 250;
    script.parts = 18;
    return script;
}

Script Unplugging(const std::string& name, const std::wstring& productString) {
    Script script;
    script.name = name;
    script.layout.productString = productString;
    script.steps = {
        kInitLogger,
        kIsVelaPresent,
        kInit,
        kSetCallbacks,
        kActivate,
        kEnableFeature,
        ShowButton("show camera", 0),
        {"unplug",
         [](ScriptFixture& fixture) {
             fixture.Touchpad().Unplug();
             return 0;
         }},
        kSetButtonLight,
        kGetClickMode,
        kSetClickMode,
        kIsVelaPresentWhileOpen,
        {"Init without a touchpad", [](ScriptFixture&) { return Init(); }},
        kUnInit,
        {"plug in",
         [](ScriptFixture& fixture) {
             fixture.Touchpad().PlugIn();
             return 0;
         }},
        kUnInitLogger,
    };
    script.firstStepToFail = "unplug";
    script.leastCalls = 40;
    script.parts = 4;
    return script;
}

Script HapticSession() {
    Script script;
    script.name = "HapticSession";
    script.subject = Script::Subject::HapticTouchpad;
    script.steps = {
        kInitLogger,
        {"IsHapticTPPresent", [](ScriptFixture&) { return IsHapticTPPresent(); }},
        {"InitHapticTP", [](ScriptFixture&) { return InitHapticTP(); }},
        {"InitHapticTP again", [](ScriptFixture&) { return InitHapticTP(); }},
        {"GetHapticTPIntensityLevel", [](ScriptFixture&) { return GetHapticTPIntensityLevel(); }},
        {"SetHapticTPIntensityLevel(50)",
         [](ScriptFixture&) { return SetHapticTPIntensityLevel(50); }},
        {"GetHapticTPIntensityLevel after the set",
         [](ScriptFixture&) { return GetHapticTPIntensityLevel(); }},
        {"UnInitHapticTP", [](ScriptFixture&) { return UnInitHapticTP(); }},
        kUnInitLogger,
    };
    script.firstStepToFail = script.steps.front().name;
    script.leastCalls = 80;
    script.parts = 4;
    return script;
}

}  // namespace

const std::vector<Script>& AllScripts() {
    static const std::vector<Script> scripts{
        Meeting(),
        DetachableMeeting(),
        Unplugging("Unplugging", virtual_touchpad::TouchpadLayout().productString),
        Unplugging("DetachableUnplugging", kDetachable),
        HapticSession(),
    };
    return scripts;
}

}  // namespace faults
