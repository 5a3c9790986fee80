// The button touchpads that tests and the demo plug in: one layout, with the variations that exist
// in the field. Native tests pass it to the simulator, the Windows tools to the virtual device's
// driver, so both have the same device.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace virtual_touchpad {

// Report ids of the usual layout.
constexpr std::uint8_t kButtonReportId = 0x01;     // input: eight one-bit usages, firmware state
constexpr std::uint8_t kLightReportId = 0x02;      // output: seven values, four active bits
constexpr std::uint8_t kRequestReportId = 0x03;    // output: the one-bit state request
constexpr std::uint8_t kClickModeReportId = 0x04;  // feature: 0x61, 0x62 (16 bits), 0x63
// The second report layout in the field, whose input report has no firmware state.
constexpr std::uint8_t kSecondLayoutReportId = 0x10;

struct TouchpadLayout {
    std::uint16_t vendorId = 0x0488;
    std::uint16_t productId = 0x1234;
    std::uint16_t versionNumber = 99;
    // Contains neither "morlo" nor "detachable": a touchpad that cannot be unplugged.
    std::wstring productString = L"Vela Virtual Touchpad";

    std::uint16_t usagePage = 0xFF80;
    std::uint16_t usage = 0x0080;

    std::vector<std::uint8_t> inputReportIds{kButtonReportId};
    std::uint8_t requestReportId = kRequestReportId;
    bool hasRequest = true;
    bool hasFeatureReport = true;
    bool activeUsagesAsArray = false;
    // Value usages of the light report (0x20 to 0x27, 0xA2) that this touchpad does not have; the
    // report contains padding in their place.
    std::set<std::uint16_t> missingLightUsages;
};

// The usages of the bytes of the light report, in declared order, from byte 1. Byte 0 is the report
// id.
constexpr std::uint16_t kLightUsages[] = {0x20, 0x21, 0x22, 0x24, 0x26, 0x27, 0xA2};
// The byte after the light values: one bit per active usage 0x01 to 0x04 (bit field layout).
constexpr std::size_t kActiveBitsOffset = 8;
// The request bit follows all bytes of the light report, so that a report with a 0 as its id byte
// can still be distinguished from a light report.
constexpr std::size_t kRequestByteOffset = 12;
constexpr std::size_t kOutputReportLength = 13;

std::vector<std::uint8_t> BuildReportDescriptor(const TouchpadLayout& layout);

}  // namespace virtual_touchpad
