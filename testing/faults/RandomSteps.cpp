#include "testing/faults/RandomSteps.h"

#include "include/VelaAgent.h"
#include "testing/faults/IdleThreads.h"
#include "testing/faults/Stage.h"

namespace faults {
namespace {

template <auto function>
Step Ask(const char* name) {
    return {NameOf(name), [](Stage&) { return static_cast<std::int64_t>(function()); }};
}

template <auto function>
Step Switch(const char* name, Dice& dice) {
    const std::int32_t on = dice.Bool();
    return {NameOf(name, {on}), [on](Stage&) { return function(on); }};
}

template <auto function>
Step SwitchButton(const char* name, Dice& dice) {
    const std::uint32_t button = dice.Below(5);  // the last one does not exist
    const std::int32_t on = dice.Bool();
    return {NameOf(name, {button, on}), [button, on](Stage&) { return function(button, on); }};
}

Step SetCallbacks(Dice& dice) {
    const bool set = dice.Below(4) != 0;
    return {NameOf("set callbacks", {set}), [set](Stage&) {
                SetVelaButtonPressCallback(set ? kit::OnButtonPress : nullptr);
                SetVelaStatusChangeCallback(set ? kit::OnStatusChange : nullptr);
                return 0;
            }};
}

Step ActivateAny(Dice& dice) {
    const std::uint32_t activation = dice.OneOf({0, 0, 0, 1, 1, 2, 4, 5, 77});
    return {NameOf("Activate", {activation}),
            [activation](Stage&) { return Activate(activation); }};
}

Step Brighten(Dice& dice) {
    const std::uint32_t level = dice.Below(400);
    return {NameOf("SetVelaBrightness", {level}), [level](Stage&) {
                SetVelaBrightness(level);
                return static_cast<std::int64_t>(GetVelaBrightness());
            }};
}

Step SetAnyClickMode(Dice& dice) {
    const std::uint32_t mode = dice.Below(3);
    const auto value = static_cast<std::uint16_t>(dice.Below(0x10000));
    return {NameOf("SetClickMode", {mode, value}),
            [mode, value](Stage&) { return SetClickMode(mode, value); }};
}

Step AskAboutButton(Dice& dice) {
    const std::uint32_t button = dice.Below(6);
    return {NameOf("IsSingleButtonEnabled", {button}),
            [button](Stage&) { return IsSingleButtonEnabled(button); }};
}

Step SetIntensity(Dice& dice) {
    const std::uint32_t level = dice.Below(101);
    return {NameOf("SetHapticTPIntensityLevel", {level}),
            [level](Stage&) { return SetHapticTPIntensityLevel(level); }};
}

Step LogElsewhere(Dice&) {
    return {"InitLogger and UnInitLogger of another part of the host", [](Stage& stage) {
                InitLogger((stage.LogDirectory() / "elsewhere").wstring().c_str());
                UnInitLogger();
                return 0;
            }};
}

Step SendAnyInput(Dice& dice) {
    // Most reports hold one usage, or none and a firmware state.
    std::vector<std::uint16_t> usages;
    for (std::uint32_t count = dice.OneOf({0, 1, 1, 1, 1, 2, 3}); count != 0; --count) {
        usages.push_back(static_cast<std::uint16_t>(0x40 + dice.Below(8)));
    }
    const auto state = static_cast<std::uint8_t>(dice.OneOf({0, 0, 0, 0x20, 0x80, 0xA0, 0xFF}));
    const simulator::Bytes report = kit::InputReport(usages, state);
    return {NameOf("input", {report[1], report[2]}), [report](Stage& stage) {
                stage.Touchpad().SendInput(report);
                return 0;
            }};
}

// clang-format off
const Choice kChoices[] = {
    {7, [](Dice&) { return Ask<Init>("Init"); }},
    {2, [](Dice&) { return Ask<UnInit>("UnInit"); }},
    {4, SetCallbacks},
    {2, [](Dice&) { return Ask<IsVelaPresent>("IsVelaPresent"); }},
    {7, ActivateAny},
    {4, [](Dice& dice) { return Switch<EnableFeature>("EnableFeature", dice); }},
    {5, [](Dice& dice) { return SwitchButton<EnableSingleButton>("EnableSingleButton", dice); }},
    {5, [](Dice& dice) { return SwitchButton<SetButtonVisible>("SetButtonVisible", dice); }},
    {4, [](Dice& dice) { return SwitchButton<SetButtonLight>("SetButtonLight", dice); }},
    {3, [](Dice& dice) { return SwitchButton<SetButtonBreathing>("SetButtonBreathing", dice); }},
    {3, [](Dice& dice) { return Switch<EnableChatBreathing>("EnableChatBreathing", dice); }},
    {2, Brighten},
    {2, SetAnyClickMode},
    {2, [](Dice&) { return Ask<GetClickMode>("GetClickMode"); }},
    {2, [](Dice&) { return Ask<UpdateVelaState>("UpdateVelaState"); }},
    {1, [](Dice&) { return Ask<IsDetachable>("IsDetachable"); }},
    {1, [](Dice&) { return Ask<IsFeatureEnabled>("IsFeatureEnabled"); }},
    {1, [](Dice&) { return Ask<IsActivated>("IsActivated"); }},
    {1, [](Dice&) { return Ask<IsChatBreathingEnabled>("IsChatBreathingEnabled"); }},
    {1, [](Dice&) { return Ask<IsSupportBiDirectionSwipe>("IsSupportBiDirectionSwipe"); }},
    {1, AskAboutButton},
    {1, [](Dice&) { return Ask<IsHapticTPPresent>("IsHapticTPPresent"); }},
    {2, [](Dice&) { return Ask<InitHapticTP>("InitHapticTP"); }},
    {1, [](Dice&) { return Ask<UnInitHapticTP>("UnInitHapticTP"); }},
    {2, SetIntensity},
    {2, [](Dice&) { return Ask<GetHapticTPIntensityLevel>("GetHapticTPIntensityLevel"); }},
    {1, LogElsewhere},
    {10, SendAnyInput},
    {5, [](Dice&) { return LetThemWork(); }},
};
// clang-format on

}  // namespace

Step LetThemWork() {
    return {"wait", [](Stage&) {
                WaitUntilOthersSleep();
                return 0;
            }};
}

std::string NameOf(const char* deed, std::initializer_list<std::int64_t> arguments) {
    std::string name = deed;
    const char* separator = "(";
    for (const std::int64_t argument : arguments) {
        name += separator + std::to_string(argument);
        separator = ", ";
    }
    return name + (arguments.size() == 0 ? "()" : ")");
}

Step DrawStep(Dice& dice) { return Draw(kChoices, dice); }

}  // namespace faults
