#include "testing/faults/RandomSteps.h"

#include "include/VelaAgent.h"
#include "testing/faults/IdleThreads.h"
#include "testing/faults/ScriptFixture.h"

namespace faults {
namespace {

template <auto function>
Step Call(const char* name) {
    return {NameOf(name), [](ScriptFixture&) { return static_cast<std::int64_t>(function()); }};
}

template <auto function>
Step Switch(const char* name, RandomSource& random) {
    const std::int32_t on = random.Bool();
    return {NameOf(name, {on}), [on](ScriptFixture&) { return function(on); }};
}

template <auto function>
Step SwitchButton(const char* name, RandomSource& random) {
    const std::uint32_t button = random.Below(5);  // the last one does not exist
    const std::int32_t on = random.Bool();
    return {NameOf(name, {button, on}),
            [button, on](ScriptFixture&) { return function(button, on); }};
}

Step SetCallbacks(RandomSource& random) {
    const bool set = random.Below(4) != 0;
    return {NameOf("set callbacks", {set}), [set](ScriptFixture&) {
                SetVelaButtonPressCallback(set ? kit::OnButtonPress : nullptr);
                SetVelaStatusChangeCallback(set ? kit::OnStatusChange : nullptr);
                return 0;
            }};
}

Step ActivateAny(RandomSource& random) {
    const std::uint32_t activation = random.OneOf({0, 0, 0, 1, 1, 2, 4, 5, 77});
    return {NameOf("Activate", {activation}),
            [activation](ScriptFixture&) { return Activate(activation); }};
}

Step Brighten(RandomSource& random) {
    const std::uint32_t level = random.Below(400);
    return {NameOf("SetVelaBrightness", {level}), [level](ScriptFixture&) {
                SetVelaBrightness(level);
                return static_cast<std::int64_t>(GetVelaBrightness());
            }};
}

Step SetAnyClickMode(RandomSource& random) {
    const std::uint32_t mode = random.Below(3);
    const auto value = static_cast<std::uint16_t>(random.Below(0x10000));
    return {NameOf("SetClickMode", {mode, value}),
            [mode, value](ScriptFixture&) { return SetClickMode(mode, value); }};
}

Step QueryButton(RandomSource& random) {
    const std::uint32_t button = random.Below(6);
    return {NameOf("IsSingleButtonEnabled", {button}),
            [button](ScriptFixture&) { return IsSingleButtonEnabled(button); }};
}

Step SetIntensity(RandomSource& random) {
    const std::uint32_t level = random.Below(101);
    return {NameOf("SetHapticTPIntensityLevel", {level}),
            [level](ScriptFixture&) { return SetHapticTPIntensityLevel(level); }};
}

Step LogElsewhere(RandomSource&) {
    return {"InitLogger and UnInitLogger of another part of the host", [](ScriptFixture& fixture) {
                InitLogger((fixture.LogDirectory() / "elsewhere").wstring().c_str());
                UnInitLogger();
                return 0;
            }};
}

Step SendAnyInput(RandomSource& random) {
    // Most reports have one usage, or none and a firmware state.
    std::vector<std::uint16_t> usages;
    for (std::uint32_t count = random.OneOf({0, 1, 1, 1, 1, 2, 3}); count != 0; --count) {
        usages.push_back(static_cast<std::uint16_t>(0x40 + random.Below(8)));
    }
    const auto state = static_cast<std::uint8_t>(random.OneOf({0, 0, 0, 0x20, 0x80, 0xA0, 0xFF}));
    const simulator::Bytes report = kit::InputReport(usages, state);
    return {NameOf("input", {report[1], report[2]}), [report](ScriptFixture& fixture) {
                fixture.Touchpad().SendInput(report);
                return 0;
            }};
}

// clang-format off
const Choice kChoices[] = {
    {7, [](RandomSource&) { return Call<Init>("Init"); }},
    {2, [](RandomSource&) { return Call<UnInit>("UnInit"); }},
    {4, SetCallbacks},
    {2, [](RandomSource&) { return Call<IsVelaPresent>("IsVelaPresent"); }},
    {7, ActivateAny},
    {4, [](RandomSource& r) { return Switch<EnableFeature>("EnableFeature", r); }},
    {5, [](RandomSource& r) { return SwitchButton<EnableSingleButton>("EnableSingleButton", r); }},
    {5, [](RandomSource& r) { return SwitchButton<SetButtonVisible>("SetButtonVisible", r); }},
    {4, [](RandomSource& r) { return SwitchButton<SetButtonLight>("SetButtonLight", r); }},
    {3, [](RandomSource& r) { return SwitchButton<SetButtonBreathing>("SetButtonBreathing", r); }},
    {3, [](RandomSource& r) { return Switch<EnableChatBreathing>("EnableChatBreathing", r); }},
    {2, Brighten},
    {2, SetAnyClickMode},
    {2, [](RandomSource&) { return Call<GetClickMode>("GetClickMode"); }},
    {2, [](RandomSource&) { return Call<UpdateVelaState>("UpdateVelaState"); }},
    {1, [](RandomSource&) { return Call<IsDetachable>("IsDetachable"); }},
    {1, [](RandomSource&) { return Call<IsFeatureEnabled>("IsFeatureEnabled"); }},
    {1, [](RandomSource&) { return Call<IsActivated>("IsActivated"); }},
    {1, [](RandomSource&) { return Call<IsChatBreathingEnabled>("IsChatBreathingEnabled"); }},
    {1, [](RandomSource&) { return Call<IsSupportBiDirectionSwipe>("IsSupportBiDirectionSwipe"); }},
    {1, QueryButton},
    {1, [](RandomSource&) { return Call<IsHapticTPPresent>("IsHapticTPPresent"); }},
    {2, [](RandomSource&) { return Call<InitHapticTP>("InitHapticTP"); }},
    {1, [](RandomSource&) { return Call<UnInitHapticTP>("UnInitHapticTP"); }},
    {2, SetIntensity},
    {2, [](RandomSource&) { return Call<GetHapticTPIntensityLevel>("GetHapticTPIntensityLevel"); }},
    {1, LogElsewhere},
    {10, SendAnyInput},
    {5, [](RandomSource&) { return WaitForThreads(); }},
};
// clang-format on

}  // namespace

Step WaitForThreads() {
    return {"wait", [](ScriptFixture&) {
                WaitUntilOthersSleep();
                return 0;
            }};
}

std::string NameOf(const char* function, std::initializer_list<std::int64_t> arguments) {
    std::string name = function;
    const char* separator = "(";
    for (const std::int64_t argument : arguments) {
        name += separator + std::to_string(argument);
        separator = ", ";
    }
    return name + (arguments.size() == 0 ? "()" : ")");
}

Step DrawStep(RandomSource& random) { return Draw(kChoices, random); }

}  // namespace faults
