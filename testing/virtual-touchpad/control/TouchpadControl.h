// The virtual touchpad from the point of view of its user: buttons and lights.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <set>

#include "testing/virtual-touchpad/control/VirtualDevice.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace virtual_touchpad {

// The contents of a light report.
struct Lights {
    std::map<std::uint16_t, std::uint8_t> brightness;  // by value usage, without the breathing one
    std::set<std::uint16_t> active;                    // of the usages 0x01 to 0x04
    std::uint8_t breathing = 0;                        // value of the usage 0xA2

    std::uint8_t Brightness(std::uint16_t usage) const;
    bool IsActive(std::uint16_t usage) const { return active.count(usage) != 0; }
};

// The report must be a light report of this layout.
Lights DecodeLights(const Report& report, const TouchpadLayout& layout);
bool IsLightReport(const OutputReport& report);
bool IsStateRequest(const OutputReport& report);

class TouchpadControl {
 public:
    explicit TouchpadControl(const std::wstring& name = L"touchpad", TouchpadLayout layout = {});

    VirtualDevice& Device() { return device_; }
    const VirtualDevice& Device() const { return device_; }

    // Sends one input report with the bits of these usages (0x40 to 0x47) set.
    void SendEvents(std::initializer_list<std::uint16_t> usages);
    void SendEvent(std::uint16_t usage) { SendEvents({usage}); }
    // The touchpad sends nothing when a button is released.
    void Press(std::uint16_t buttonUsage) { SendEvent(buttonUsage); }
    // Sends one input report without events, with the firmware's state in the usage 0x48.
    void SendFirmwareState(std::uint8_t bits);

    // Returns the lights of the last light report after `since`; all are dark without one.
    Lights CurrentLights(std::uint64_t since = 0) const;

 private:
    void SendInput(std::uint8_t events, std::uint8_t firmwareState);

    VirtualDevice device_;
    TouchpadLayout layout_;
};

}  // namespace virtual_touchpad
