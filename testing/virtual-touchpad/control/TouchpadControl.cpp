#include "testing/virtual-touchpad/control/TouchpadControl.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace virtual_touchpad {
namespace {

constexpr std::uint16_t kFirstEventUsage = 0x40;
constexpr std::uint16_t kLastEventUsage = 0x47;
constexpr std::uint16_t kBreathingUsage = 0xA2;
constexpr std::uint16_t kActiveUsages = 4;

std::uint8_t ByteAt(const Report& report, std::size_t offset) {
    return offset < report.size() ? report[offset] : std::uint8_t{0};
}

// Active usages are bits of one byte, or the values of one-byte array slots.
std::set<std::uint16_t> DecodeActive(const Report& report, bool asArray) {
    std::set<std::uint16_t> active;
    for (std::uint16_t i = 0; i < kActiveUsages; ++i) {
        if (asArray) {
            const std::uint8_t usage = ByteAt(report, kActiveBitsOffset + i);
            if (usage != 0) active.insert(usage);
        } else if ((ByteAt(report, kActiveBitsOffset) >> i & 1) != 0) {
            active.insert(static_cast<std::uint16_t>(i + 1));
        }
    }
    return active;
}

}  // namespace

std::uint8_t Lights::Brightness(std::uint16_t usage) const {
    const auto found = brightness.find(usage);
    return found == brightness.end() ? std::uint8_t{0} : found->second;
}

Lights DecodeLights(const Report& report, const TouchpadLayout& layout) {
    Lights lights;
    std::size_t offset = 1;
    for (const std::uint16_t usage : kLightUsages) {
        const std::uint8_t value = ByteAt(report, offset++);
        if (layout.missingLightUsages.count(usage) != 0) continue;
        if (usage == kBreathingUsage) {
            lights.breathing = value;
        } else {
            lights.brightness[usage] = value;
        }
    }
    lights.active = DecodeActive(report, layout.activeUsagesAsArray);
    return lights;
}

bool IsLightReport(const OutputReport& report) { return ByteAt(report.bytes, 0) == kLightReportId; }

bool IsStateRequest(const OutputReport& report) {
    return !IsLightReport(report) && (ByteAt(report.bytes, kRequestByteOffset) & 1) != 0;
}

TouchpadControl::TouchpadControl(const std::wstring& name, TouchpadLayout layout)
    : device_(name), layout_(std::move(layout)) {
    if (layout_.inputReportIds.empty()) {
        throw std::runtime_error("the touchpad's layout has no input report");
    }
}

void TouchpadControl::SendInput(std::uint8_t events, std::uint8_t firmwareState) {
    device_.SendInput({layout_.inputReportIds.front(), events, firmwareState});
}

void TouchpadControl::SendEvents(std::initializer_list<std::uint16_t> usages) {
    unsigned events = 0;
    for (const std::uint16_t usage : usages) {
        if (usage < kFirstEventUsage || usage > kLastEventUsage) {
            throw std::runtime_error("the touchpad has no event usage " + std::to_string(usage));
        }
        events |= 1U << (usage - kFirstEventUsage);
    }
    SendInput(static_cast<std::uint8_t>(events), 0);
}

void TouchpadControl::SendFirmwareState(std::uint8_t bits) { SendInput(0, bits); }

Lights TouchpadControl::CurrentLights(std::uint64_t since) const {
    const std::vector<OutputReport> reports = device_.OutputReports(since);
    const auto last = std::find_if(reports.rbegin(), reports.rend(), IsLightReport);
    return DecodeLights(last == reports.rend() ? Report{} : last->bytes, layout_);
}

}  // namespace virtual_touchpad
