// Composes the output reports that a session writes to a touchpad.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "testing/kit/Reports.h"

namespace kit {

using virtual_touchpad::TouchpadLayout;

// A session's state of one button.
struct ButtonState {
    enum class Breathing { Requested, Running, Stopped };

    bool present = false;
    bool enabled = false;
    bool breathingEnabled = false;
    bool lightOn = false;
    bool visible = false;
    Breathing breathing = Breathing::Stopped;
};
using ButtonStates = std::unordered_map<std::uint32_t, ButtonState>;

class ReportComposer {
 public:
    explicit ReportComposer(const TouchpadLayout& layout) : layout_(layout) {}

    // Returns the light report of an active session. Requested breathing counts as running from
    // then on.
    Bytes Lights(ButtonStates& buttons, std::uint8_t brightness) const;
    // Returns a light report with every light off and no button active.
    Bytes Blank() const { return LightReport({}, {}); }
    Bytes StateRequest() const;

 private:
    // Light values by usage.
    using Values = std::unordered_map<std::uint16_t, std::uint8_t>;
    struct ButtonUsages;

    void SetLights(const ButtonUsages& usages, ButtonState& button, std::uint8_t brightness,
                   Values& values) const;
    bool Has(std::uint16_t lightUsage) const;
    Bytes LightReport(const Values& values, const std::vector<std::uint8_t>& active) const;

    const TouchpadLayout layout_;
};

}  // namespace kit
