#include "tools/velapanel/ReportFields.h"

#include <functional>
#include <iterator>
#include <map>

#include "testing/virtual-touchpad/descriptor/HapticLayout.h"

namespace velapanel {
namespace {

using virtual_touchpad::Report;

constexpr char kUnknown[] = "a report of another layout";

void Append(std::string& text, const std::string& part) {
    if (!text.empty()) text += ", ";
    text += part;
}

// The lights of a light report in the order of kLightUsages, from byte 1 on.
constexpr const char* kLightNames[] = {"camera on", "camera off", "screen",
                                       "chat",      "mic on",     "mic off"};
constexpr std::size_t kBreathingOffset = std::size(kLightNames) + 1;
constexpr const char* kActiveNames[] = {"camera", "screen", "chat", "mic"};
constexpr unsigned kAllActive = 0x0F;
constexpr const char* kEventNames[] = {"SYNC",       "camera",  "share screen", "chat",
                                       "microphone", "gesture", "enabled",      "disabled"};

template <std::size_t count>
std::string SetBits(unsigned bits, const char* const (&names)[count]) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        if ((bits >> i & 1U) != 0) Append(text, names[i]);
    }
    return text;
}

// Lists lights of the same brightness together, the brightest first.
std::string Brightnesses(const Report& report) {
    std::map<std::uint8_t, std::string, std::greater<>> lights;
    for (std::size_t i = 0; i < std::size(kLightNames); ++i) {
        Append(lights[report[i + 1]], kLightNames[i]);
    }
    std::string text;
    for (const auto& [brightness, names] : lights) {
        if (brightness != 0) text += std::to_string(brightness) + ": " + names + "; ";
    }
    return text.empty() ? "all dark; " : text;
}

std::string LightFields(const Report& report) {
    std::string text = Brightnesses(report);
    const unsigned breathing = report[kBreathingOffset];
    if (breathing != 0) text += "breathing " + std::to_string(breathing) + "; ";
    const unsigned active = report[virtual_touchpad::kActiveBitsOffset] & kAllActive;
    if (active == kAllActive) return text + "all active";
    return text + (active == 0 ? "none active" : "active: " + SetBits(active, kActiveNames));
}

std::string FirmwareState(unsigned bits) {
    constexpr const char* kNames[] = {"swipe off", "touchpad enabled", "touchpad disabled"};
    const std::string text = SetBits(bits >> 5, kNames);
    return text.empty() ? "firmware state: normal" : "firmware state: " + text;
}

}  // namespace

std::string ToHex(const Report& report) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : report) {
        if (!text.empty()) text += ' ';
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

ReportLine DescribeOutput(const Report& report) {
    std::string fields = kUnknown;
    if (report.size() > virtual_touchpad::kActiveBitsOffset &&
        report[0] == virtual_touchpad::kLightReportId) {
        fields = LightFields(report);
    } else if (!report.empty() && report[0] == virtual_touchpad::kRequestReportId) {
        fields = "request for the firmware's state";
    }
    return {"output", ToHex(report), fields};
}

ReportLine DescribeInput(const Report& report) {
    std::string fields = kUnknown;
    if (report.size() >= 3) {
        fields = report[1] != 0 ? SetBits(report[1], kEventNames) : FirmwareState(report[2]);
    }
    return {"input", ToHex(report), fields};
}

ReportLine DescribeFeature(const Report& report) {
    std::string fields = kUnknown;
    if (report.size() == 5 && report[0] == virtual_touchpad::kClickModeReportId) {
        const unsigned value = report[2] + report[3] * 256U;
        fields = "click mode " + (value == 0 ? "off" : std::to_string(value));
    } else if (report.size() == virtual_touchpad::kHapticsReportLength &&
               report[0] == virtual_touchpad::kHapticsReportId) {
        fields = "haptic intensity " + std::to_string(HapticLevel(report));
    }
    return {"feature", ToHex(report), fields};
}

// The field has seven bits, from bit 4 on.
unsigned HapticLevel(const Report& report) {
    return (report.at(1) >> 4U | static_cast<unsigned>(report.at(2)) << 4U) & 0x7FU;
}

}  // namespace velapanel
