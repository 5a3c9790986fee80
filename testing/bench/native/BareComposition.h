// Makes only the platform calls that compose a report with all four buttons lit.
#pragma once

#include <windows.h>

#include <array>

#include "hid/HidHeaders.h"

namespace bench {

class BareComposition {
 public:
    explicit BareComposition(PHIDP_PREPARSED_DATA preparsed) : preparsed_(preparsed) {}

    void operator()(bool cameraOn) {
        constexpr ULONG kBrightness = 3;
        report_.fill(0);
        Set(0x20, cameraOn ? kBrightness : 0);
        Set(0x21, cameraOn ? 0 : kBrightness);
        Set(0x26, 0);
        Set(0x27, kBrightness);
        Set(0x24, kBrightness);
        Set(0x22, kBrightness);
        USAGE active[] = {0x01, 0x04, 0x03, 0x02};
        ULONG count = 4;
        HidP_SetUsages(HidP_Output, kPage, 0, active, &count, preparsed_, report_.data(), kLength);
    }

 private:
    static constexpr USAGE kPage = 0xFF80;
    static constexpr ULONG kLength = 13;

    void Set(USAGE usage, ULONG value) {
        HidP_SetUsageValue(HidP_Output, kPage, 0, usage, value, preparsed_, report_.data(),
                           kLength);
    }

    PHIDP_PREPARSED_DATA preparsed_;
    std::array<char, kLength> report_{};
};

}  // namespace bench
