#include "touchpad/BiDirectionSwipe.h"

#include "touchpad/TouchpadUsages.h"

namespace vela {
namespace {

// The older family's first firmware with the gesture.
constexpr USHORT kFirstVersionWithGesture = 99;

// Its touchpads report the gesture in their second layout.
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
