#include "testing/kit/ReportComposer.h"

#include <iterator>

namespace kit {

// The usages of one button in the light report.
struct ReportComposer::ButtonUsages {
    std::uint32_t buttonId;
    std::uint16_t whileOff;
    std::uint16_t whileOn;  // equal to whileOff for a button with one light
    std::uint8_t active;
};

namespace {

constexpr std::uint16_t kChatBreathing = 0xA2;
constexpr std::uint32_t kChat = 2;

std::uint8_t NextBreathingValue(ButtonState& chat) {
    switch (chat.breathing) {
        case ButtonState::Breathing::Requested:
            chat.breathing = ButtonState::Breathing::Running;
            return 8;
        case ButtonState::Breathing::Running:
            return 15;
        default:
            return 0;
    }
}

}  // namespace

Bytes ReportComposer::Lights(ButtonStates& buttons, std::uint8_t brightness) const {
    constexpr ButtonUsages kButtons[] = {
        {0, 0x21, 0x20, 0x01}, {1, 0x27, 0x26, 0x04}, {2, 0x24, 0x24, 0x03}, {3, 0x22, 0x22, 0x02}};
    Values values;
    std::vector<std::uint8_t> active;
    for (const ButtonUsages& usages : kButtons) {
        ButtonState& button = buttons[usages.buttonId];
        if (!button.enabled || !button.visible) continue;  // dark
        active.push_back(usages.active);
        SetLights(usages, button, brightness, values);
    }
    return LightReport(values, active);
}

// A button stays dark when the touchpad lacks the light that shows its "on".
void ReportComposer::SetLights(const ButtonUsages& usages, ButtonState& button,
                               std::uint8_t brightness, Values& values) const {
    if (!Has(usages.whileOn)) return;
    if (usages.whileOff != usages.whileOn) {
        values[button.lightOn ? usages.whileOn : usages.whileOff] = brightness;
        return;
    }
    values[usages.whileOn] = brightness;
    if (usages.buttonId == kChat && button.breathingEnabled) {
        values[kChatBreathing] = NextBreathingValue(button);
    }
}

bool ReportComposer::Has(std::uint16_t lightUsage) const {
    return layout_.missingLightUsages.count(lightUsage) == 0;
}

Bytes ReportComposer::LightReport(const Values& values,
                                  const std::vector<std::uint8_t>& active) const {
    using virtual_touchpad::kActiveBitsOffset;
    using virtual_touchpad::kLightUsages;
    // The request bit comes last in the output reports: without it they are shorter.
    Bytes report(layout_.hasRequest ? virtual_touchpad::kOutputReportLength
                                    : virtual_touchpad::kRequestByteOffset);
    report[0] = virtual_touchpad::kLightReportId;
    for (std::size_t i = 0; i < std::size(kLightUsages); ++i) {
        const auto value = values.find(kLightUsages[i]);
        if (value != values.end() && Has(kLightUsages[i])) report[1 + i] = value->second;
    }
    for (std::size_t i = 0; i < active.size(); ++i) {
        if (layout_.activeUsagesAsArray) {
            report[kActiveBitsOffset + i] = active[i];
        } else {
            report[kActiveBitsOffset] =
                static_cast<std::uint8_t>(report[kActiveBitsOffset] | 1U << (active[i] - 1U));
        }
    }
    return report;
}

Bytes ReportComposer::StateRequest() const {
    Bytes report(virtual_touchpad::kOutputReportLength);
    report[0] = layout_.requestReportId;
    report[virtual_touchpad::kRequestByteOffset] = 1;
    return report;
}

}  // namespace kit
