// What the touchpad reports by itself: the button usages of its input report.
#pragma once

#include <cstdint>

namespace virtual_touchpad::events {

constexpr std::uint16_t kSync = 0x40;  // the firmware requests that the host resynchronises
constexpr std::uint16_t kCameraButton = 0x41;
constexpr std::uint16_t kShareScreenButton = 0x42;
constexpr std::uint16_t kChatButton = 0x43;
constexpr std::uint16_t kMicrophoneButton = 0x44;
constexpr std::uint16_t kGesture = 0x45;   // the person disabled the touchpad with a gesture
constexpr std::uint16_t kEnabled = 0x46;   // a switch of the machine enabled the touchpad
constexpr std::uint16_t kDisabled = 0x47;  // a switch of the machine disabled the touchpad

}  // namespace virtual_touchpad::events
