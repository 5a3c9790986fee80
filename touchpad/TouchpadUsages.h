// Usages of the touchpad's reports, on the vendor-defined usage page of its top-level collection.
#pragma once

#include "hid/HidHeaders.h"

namespace vela {

// The vendor-defined top-level collection with the meeting buttons. Finger contacts are reported in
// another one, on the digitizer page.
constexpr USAGE kTouchpadUsagePage = 0xFF80;
constexpr USAGE kMeetingButtonsUsage = 0x0080;
constexpr USHORT kTouchpadVendorId = 0x0488;

// The report id of the touchpad's second report layout.
constexpr UCHAR kSecondLayoutReportId = 0x10;

// Output report, buttons: the button is enabled and visible.
constexpr USAGE USAGE_CAMERA_ACTIVE = 0x01;
constexpr USAGE USAGE_SHARE_SCREEN_ACTIVE = 0x02;
constexpr USAGE USAGE_CHAT_ACTIVE = 0x03;
constexpr USAGE USAGE_AUDIO_ACTIVE = 0x04;
// Output report, values: brightness of one light, 0 = dark.
constexpr USAGE USAGE_CAMERA_LED_ON = 0x20;
constexpr USAGE USAGE_CAMERA_LED_OFF = 0x21;
constexpr USAGE USAGE_SHARE_SCREEN_LED = 0x22;
constexpr USAGE USAGE_CHAT_LED = 0x24;
constexpr USAGE USAGE_AUDIO_LED_ON = 0x26;
constexpr USAGE USAGE_AUDIO_LED_OFF = 0x27;
// Output report, value: starts, continues or ends the chat light's breathing.
constexpr USAGE USAGE_CHAT_BREATHING = 0xA2;
// Output report, button: requests the firmware's state.
constexpr USAGE USAGE_REQUEST = 0x30;

// Input report, buttons.
constexpr USAGE USAGE_SYNC = 0x40;  // the firmware requests a resynchronisation
constexpr USAGE USAGE_CAMERA_BUTTON = 0x41;
constexpr USAGE USAGE_SHARE_SCREEN_BUTTON = 0x42;
constexpr USAGE USAGE_CHAT_BUTTON = 0x43;
constexpr USAGE USAGE_MIC_BUTTON = 0x44;
constexpr USAGE USAGE_GESTURE = 0x45;  // the user made the disabling gesture
constexpr USAGE USAGE_ENABLED = 0x46;
constexpr USAGE USAGE_DISABLED = 0x47;
// Input report, value: firmware state bits, read only from a report without any button usage.
constexpr USAGE USAGE_FW_STATE = 0x48;

// Feature report, value: the click mode, 0 = off.
constexpr USAGE USAGE_DBLTAP_DURATION_MAX = 0x62;

// The whole top-level collection, for the platform's report calls.
constexpr USHORT kNoLinkCollection = 0;

}  // namespace vela
