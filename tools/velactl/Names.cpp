#include "tools/velactl/Names.h"

namespace velactl {

const std::map<std::string, VelaButton>& Buttons() {
    static const std::map<std::string, VelaButton> buttons{
        {"camera", VELA_BUTTON_CAMERA},
        {"microphone", VELA_BUTTON_MICROPHONE},
        {"chat", VELA_BUTTON_CHAT},
        {"share-screen", VELA_BUTTON_SHARE_SCREEN}};
    return buttons;
}

const std::map<std::string, bool>& Switch() {
    static const std::map<std::string, bool> words{{"on", true}, {"off", false}};
    return words;
}

std::string ButtonName(std::uint32_t button) {
    for (const auto& [name, id] : Buttons()) {
        if (id == button) return name;
    }
    return "button " + std::to_string(button);
}

std::string SwitchName(bool on) { return on ? "on" : "off"; }

std::string StatusName(std::uint32_t status) {
    static const std::map<std::uint32_t, std::string> names{
        {VELA_STATUS_NORMAL, "normal"},
        {VELA_ACTIVE_HOST_SETS_LIGHTS, "normal"},
        {VELA_STATUS_TEMPORARILY_DISABLED, "temporarily disabled"},
        {VELA_STATUS_DISABLED, "disabled"},
        {VELA_STATUS_DEACTIVATED, "deactivated"}};
    const auto name = names.find(status);
    return name == names.end() ? "activation " + std::to_string(status) : name->second;
}

}  // namespace velactl
