#include "touchpad/BiDirectionSwipe.h"

#include "touchpad/TouchpadUsages.h"

namespace vela {
namespace {

// The older family's first firmware version with the gesture in both directions.
constexpr USHORT kFirstVersionWithGesture = 99;

// Touchpads of the older family report the gesture in the second report layout.
bool IsOlderFamily(const CHIDInformation& information) {
    HIDP_BUTTON_CAPS gesture{};
    return information.GetButtonCaps(HidP_Input, USAGE_GESTURE, gesture) &&
           gesture.ReportID == kSecondLayoutReportId &&
           information.attributes.VendorID == kTouchpadVendorId &&
           information.caps.UsagePage == kTouchpadUsagePage &&
           information.caps.Usage == kMeetingButtonsUsage;
}

}  // namespace

bool SupportsBiDirectionSwipe(const CHIDInformation& information) {
    return !IsOlderFamily(information) ||
           information.attributes.VersionNumber >= kFirstVersionWithGesture;
}

}  // namespace vela
