#include "testing/acceptance/ExportCalls.h"

namespace acceptance {
namespace {

std::string Text(std::int64_t result) { return std::to_string(result); }

}  // namespace

const std::vector<ExportCall>& EveryExportButUnInit() {
    static const std::vector<ExportCall> calls = {
        {"Activate", [](AgentDll& a) { return Text(a.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS)); }},
        {"EnableChatBreathing", [](AgentDll& a) { return Text(a.EnableChatBreathing(1)); }},
        {"EnableFeature", [](AgentDll& a) { return Text(a.EnableFeature(1)); }},
        {"EnableSingleButton",
         [](AgentDll& a) { return Text(a.EnableSingleButton(VELA_BUTTON_CAMERA, 1)); }},
        {"GetClickMode", [](AgentDll& a) { return Text(a.GetClickMode()); }},
        {"GetHapticTPIntensityLevel",
         [](AgentDll& a) { return Text(a.GetHapticTPIntensityLevel()); }},
        {"GetVelaBrightness", [](AgentDll& a) { return Text(a.GetVelaBrightness()); }},
        {"Init", [](AgentDll& a) { return Text(a.Init()); }},
        {"InitHapticTP", [](AgentDll& a) { return Text(a.InitHapticTP()); }},
        {"InitLogger", [](AgentDll& a) { return a.InitLogger(L"C:\\"), std::string("-"); }},
        {"IsActivated", [](AgentDll& a) { return Text(a.IsActivated()); }},
        {"IsChatBreathingEnabled", [](AgentDll& a) { return Text(a.IsChatBreathingEnabled()); }},
        {"IsDetachable", [](AgentDll& a) { return Text(a.IsDetachable()); }},
        {"IsFeatureEnabled", [](AgentDll& a) { return Text(a.IsFeatureEnabled()); }},
        {"IsHapticTPPresent", [](AgentDll& a) { return Text(a.IsHapticTPPresent()); }},
        {"IsSingleButtonEnabled",
         [](AgentDll& a) { return Text(a.IsSingleButtonEnabled(VELA_BUTTON_CAMERA)); }},
        {"IsSupportBiDirectionSwipe",
         [](AgentDll& a) { return Text(a.IsSupportBiDirectionSwipe()); }},
        {"IsVelaPresent", [](AgentDll& a) { return Text(a.IsVelaPresent()); }},
        {"SetButtonBreathing",
         [](AgentDll& a) { return Text(a.SetButtonBreathing(VELA_BUTTON_CHAT, 1)); }},
        {"SetButtonLight",
         [](AgentDll& a) { return Text(a.SetButtonLight(VELA_BUTTON_MICROPHONE, 1)); }},
        {"SetButtonVisible",
         [](AgentDll& a) { return Text(a.SetButtonVisible(VELA_BUTTON_CAMERA, 1)); }},
        {"SetClickMode", [](AgentDll& a) { return Text(a.SetClickMode(1, 300)); }},
        {"SetHapticTPIntensityLevel",
         [](AgentDll& a) { return Text(a.SetHapticTPIntensityLevel(1)); }},
        {"SetVelaBrightness", [](AgentDll& a) { return a.SetVelaBrightness(7), std::string("-"); }},
        {"SetVelaButtonPressCallback",
         [](AgentDll& a) { return a.SetVelaButtonPressCallback(nullptr), std::string("-"); }},
        {"SetVelaStatusChangeCallback",
         [](AgentDll& a) { return a.SetVelaStatusChangeCallback(nullptr), std::string("-"); }},
        {"UnInitHapticTP", [](AgentDll& a) { return Text(a.UnInitHapticTP()); }},
        {"UnInitLogger", [](AgentDll& a) { return a.UnInitLogger(), std::string("-"); }},
        {"UpdateVelaState", [](AgentDll& a) { return Text(a.UpdateVelaState()); }},
    };
    return calls;
}

std::vector<std::string> CallEveryExportButUnInit(AgentDll& agent) {
    std::vector<std::string> results;
    for (const ExportCall& call : EveryExportButUnInit()) {
        results.push_back(std::string(call.name) + " " + call.call(agent));
    }
    return results;
}

}  // namespace acceptance
