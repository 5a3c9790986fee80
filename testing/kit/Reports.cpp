#include "testing/kit/Reports.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace kit {
namespace {

struct Named {
    std::string_view name;
    std::uint8_t value;
};

// Offsets in the light report.
constexpr Named kLights[] = {{"camera on", 1}, {"camera off", 2},    {"share screen", 3},
                             {"chat", 4},      {"microphone on", 5}, {"microphone off", 6},
                             {"breathing", 7}};

// Bits of the active usages 0x01 to 0x04.
constexpr Named kActive[] = {{"camera", 1},     {"share screen", 2}, {"chat", 4},
                             {"microphone", 8}, {"all", 15},         {"none", 0}};

template <std::size_t Count>
std::uint8_t Find(const Named (&table)[Count], const std::string& name) {
    for (const Named& named : table) {
        if (named.name == name) return named.value;
    }
    throw std::invalid_argument("no such light or button: " + name);
}

std::vector<std::string> SplitAtCommas(const std::string& text) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, ',');) {
        parts.push_back(part.substr(std::min(part.find_first_not_of(' '), part.size())));
    }
    return parts;
}

// Cuts " 3" off "camera off 3" and returns the 3; `level` when there is no number.
std::uint8_t TakeBrightness(std::string& light, std::uint8_t level) {
    const std::size_t digits = light.find_first_of("0123456789");
    if (digits == std::string::npos) return level;
    const int brightness = std::stoi(light.substr(digits));
    light.erase(digits - 1);
    return static_cast<std::uint8_t>(brightness);
}

}  // namespace

Bytes InputReport(const std::vector<std::uint16_t>& usages, std::uint8_t firmwareState,
                  std::uint8_t reportId) {
    std::uint8_t buttons = 0;
    for (const std::uint16_t usage : usages) {
        buttons = static_cast<std::uint8_t>(buttons | 1U << (usage - kSync));
    }
    return {reportId, buttons, firmwareState};
}

Bytes LightReport(const std::string& lights, std::uint8_t level) {
    const std::string ending = " active";
    const std::size_t split = lights.find("; ");
    const std::size_t end = lights.rfind(ending);
    if (split == std::string::npos || end == std::string::npos ||
        end + ending.size() != lights.size()) {
        throw std::invalid_argument("not the lights of a touchpad: " + lights);
    }
    Bytes report(virtual_touchpad::kOutputReportLength);
    report[0] = virtual_touchpad::kLightReportId;
    for (std::string light : SplitAtCommas(lights.substr(0, split))) {
        if (light == "dark") continue;
        const std::uint8_t brightness = TakeBrightness(light, level);
        report[Find(kLights, light)] = brightness;
    }
    std::uint8_t& active = report[virtual_touchpad::kActiveBitsOffset];
    for (const std::string& button : SplitAtCommas(lights.substr(split + 2, end - split - 2))) {
        active = static_cast<std::uint8_t>(active | Find(kActive, button));
    }
    return report;
}

Bytes AllLit(std::uint8_t breathing) {
    return LightReport("camera off, microphone off, chat, share screen, breathing " +
                       std::to_string(breathing) + "; all active");
}

Bytes AllLitAt(std::uint8_t level) {
    return LightReport("camera off, microphone off, chat, share screen; all active", level);
}

Bytes BlankReport() { return LightReport("dark; none active"); }

Bytes RequestReport(std::uint8_t reportId) {
    Bytes report(virtual_touchpad::kOutputReportLength);
    report[0] = reportId;
    report[virtual_touchpad::kRequestByteOffset] = 1;
    return report;
}

}  // namespace kit
