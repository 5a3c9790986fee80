// A haptic precision touchpad with the usual layout: fingers, buttons and scan time as input,
// several feature reports, and the intensity of its haptic feedback in one of them, between other
// fields and not byte-aligned.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace virtual_touchpad {

constexpr std::uint8_t kFingerReportId = 0x01;         // input
constexpr std::uint8_t kCapabilitiesReportId = 0x02;   // feature: contact count, pad type
constexpr std::uint8_t kCertificationReportId = 0x03;  // feature: a blob on a vendor-defined page
constexpr std::uint8_t kHapticsReportId = 0x09;        // feature: the haptic controller
constexpr std::uint8_t kReportingReportId = 0x0B;      // feature: surface and button switch

// The haptics report, its id at byte 0, fields from the lowest bit up:
//   auto trigger 4 bits, intensity 7 bits, repeat count 5 bits, retrigger period 8 bits
constexpr std::size_t kHapticsReportLength = 4;
constexpr std::uint32_t kIntensityMaximum = 100;

struct HapticLayout {
    std::uint16_t vendorId = 0x3F0A;
    std::uint16_t productId = 0x0D05;
    std::uint16_t versionNumber = 0x0102;
    std::wstring productString = L"Virtual Haptic Touchpad";
    bool hasIntensity = true;
};

std::vector<std::uint8_t> BuildReportDescriptor(const HapticLayout& layout);

// The fields of a haptics report.
struct HapticFields {
    std::uint8_t autoTrigger = 0;
    std::uint8_t intensity = 0;
    std::uint8_t repeatCount = 0;
    std::uint8_t retriggerPeriod = 0;
};
std::vector<std::uint8_t> HapticsReport(const HapticFields& fields);

}  // namespace virtual_touchpad
