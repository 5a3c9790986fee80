// The touchpad's reports, as tests write them down.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "testing/virtual-touchpad/descriptor/DeviceEvents.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace kit {

using Bytes = std::vector<std::uint8_t>;
using namespace virtual_touchpad::events;

// An input report: the usages that are set (0x40 to 0x47) and the firmware state.
Bytes InputReport(const std::vector<std::uint16_t>& usages, std::uint8_t firmwareState = 0,
                  std::uint8_t reportId = virtual_touchpad::kButtonReportId);

// The light report of a touchpad that shows these lights and active buttons, as in
// "camera off 3, microphone off 3, chat 3, breathing 8; camera, chat active" or in "dark; none
// active". "camera off" is the light that is lit while the camera is off. A light without a number
// has the brightness `level`. Throws std::invalid_argument when the text is none of that kind.
Bytes LightReport(const std::string& lights, std::uint8_t level = 3);
// All four buttons shown, with the camera's and the microphone's light for "off".
Bytes AllLit(std::uint8_t breathing = 0);
Bytes AllLitAt(std::uint8_t level);
// Nothing lit, and no button active.
Bytes BlankReport();

// The request that the firmware reports its state.
Bytes RequestReport(std::uint8_t reportId = virtual_touchpad::kRequestReportId);

}  // namespace kit
