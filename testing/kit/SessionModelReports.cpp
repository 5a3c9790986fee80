// The output reports that a touchpad receives.
#include <iterator>

#include "testing/kit/SessionModel.h"

namespace kit {

struct SessionModel::Lights {
    std::uint32_t buttonId;
    std::uint16_t whileOff;
    std::uint16_t whileOn;  // the same: one light only
    std::uint8_t active;
};

namespace {

constexpr std::uint16_t kChatBreathing = 0xA2;
constexpr std::uint32_t kChat = 2;

}  // namespace

void SessionModel::Update(bool force) {
    // Of a touchpad that cannot be taken off it is never asked whether it is there.
    const bool known = open_ && detachable_;
    if ((known && !connected_) || IsDisabled()) return;
    Write(ComposeLights(), force);
}

void SessionModel::Write(const Bytes& report, bool force) {
    if (!connected_) return;
    if (!force && report == lastReport_) return;
    reports_.push_back(report);
    if (!force) lastReport_ = report;
}

Bytes SessionModel::ComposeLights() {
    if (!open_ || !featureEnabled_ || !IsActivated()) return BlankReport();

    constexpr Lights kLights[] = {
        {0, 0x21, 0x20, 0x01}, {1, 0x27, 0x26, 0x04}, {2, 0x24, 0x24, 0x03}, {3, 0x22, 0x22, 0x02}};
    std::unordered_map<std::uint16_t, std::uint8_t> values;
    std::vector<std::uint8_t> active;
    for (const Lights& lights : kLights) {
        Button& button = buttons_[lights.buttonId];
        if (!button.enabled || !button.visible) continue;  // dark
        active.push_back(lights.active);
        ComposeButton(lights, button, values);
    }
    return LightReport(values, active);
}

// A button whose second light the touchpad does not have stays dark as a whole.
void SessionModel::ComposeButton(const Lights& lights, Button& button,
                                 std::unordered_map<std::uint16_t, std::uint8_t>& values) {
    if (!Has(lights.whileOn)) return;
    if (lights.whileOff != lights.whileOn) {
        values[button.lightOn ? lights.whileOn : lights.whileOff] = brightness_;
        return;
    }
    values[lights.whileOn] = brightness_;
    if (lights.buttonId == kChat && button.breathingEnabled) {
        values[kChatBreathing] = NextBreathingValue(button);
    }
}

std::uint8_t SessionModel::NextBreathingValue(Button& chat) {
    switch (chat.breathing) {
        case Breathing::Requested:
            chat.breathing = Breathing::Running;
            return 8;
        case Breathing::Running:
            return 15;
        default:
            return 0;
    }
}

bool SessionModel::Has(std::uint16_t lightUsage) const {
    return layout_.missingLightUsages.count(lightUsage) == 0;
}

Bytes SessionModel::LightReport(const std::unordered_map<std::uint16_t, std::uint8_t>& values,
                                const std::vector<std::uint8_t>& active) const {
    using virtual_touchpad::kActiveBitsOffset;
    using virtual_touchpad::kLightUsages;
    // The request bit lies behind the light report; without it the touchpad's reports are shorter.
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

Bytes SessionModel::RequestReport() const {
    Bytes report(virtual_touchpad::kOutputReportLength);
    report[0] = layout_.requestReportId;
    report[virtual_touchpad::kRequestByteOffset] = 1;
    return report;
}

}  // namespace kit
