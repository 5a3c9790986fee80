// Builds the touchpad's reports from a short notation.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace kit {

using Bytes = std::vector<std::uint8_t>;
using namespace virtual_touchpad::events;

// Returns an input report with these usages set (0x40 to 0x47) and the firmware state.
Bytes InputReport(const std::vector<std::uint16_t>& usages, std::uint8_t firmwareState = 0,
                  std::uint8_t reportId = virtual_touchpad::kButtonReportId);

// Returns the light report for a text such as
// "camera off 3, microphone off 3, chat 3, breathing 8; camera, chat active" or "dark; none
// active". "camera off" is the light that is lit while the camera is off. A light without a number
// has the brightness `level`. Throws std::invalid_argument for any other text.
Bytes LightReport(const std::string& lights, std::uint8_t level = 3);
// All four buttons are shown, the camera and the microphone with their light for "off".
Bytes AllLit(std::uint8_t breathing = 0);
Bytes AllLitAt(std::uint8_t level);
// No light is lit and no button active.
Bytes BlankReport();

// Returns the output report that requests the firmware state.
Bytes RequestReport(std::uint8_t reportId = virtual_touchpad::kRequestReportId);

}  // namespace kit
