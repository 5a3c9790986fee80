#include "testing/parity/Descriptors.h"

#include "testing/virtual-touchpad/descriptor/HapticLayout.h"
#include "testing/virtual-touchpad/descriptor/TouchpadLayout.h"

namespace parity {
namespace {

using virtual_touchpad::BuildReportDescriptor;
using virtual_touchpad::HapticLayout;
using virtual_touchpad::TouchpadLayout;

TouchpadLayout WithActiveArray() {
    TouchpadLayout layout;
    layout.activeUsagesAsArray = true;
    return layout;
}

TouchpadLayout WithTwoInputReports() {
    TouchpadLayout layout;
    layout.inputReportIds = {virtual_touchpad::kButtonReportId,
                             virtual_touchpad::kSecondLayoutReportId};
    return layout;
}

TouchpadLayout WithFewParts() {
    TouchpadLayout layout;
    layout.hasRequest = false;
    layout.hasFeatureReport = false;
    layout.missingLightUsages = {0x21, 0x27, 0xA2};
    return layout;
}

// The light report contains the request bit.
TouchpadLayout WithSharedRequestReport() {
    TouchpadLayout layout;
    layout.requestReportId = virtual_touchpad::kLightReportId;
    return layout;
}

HapticLayout WithoutIntensity() {
    HapticLayout layout;
    layout.hasIntensity = false;
    return layout;
}

}  // namespace

std::vector<Descriptor> TouchpadDescriptors() {
    return {
        {"ButtonTouchpad", BuildReportDescriptor(TouchpadLayout())},
        {"ButtonTouchpadWithActiveArray", BuildReportDescriptor(WithActiveArray())},
        {"ButtonTouchpadWithTwoInputReports", BuildReportDescriptor(WithTwoInputReports())},
        {"ButtonTouchpadWithFewParts", BuildReportDescriptor(WithFewParts())},
        {"ButtonTouchpadWithSharedRequestReport", BuildReportDescriptor(WithSharedRequestReport())},
        {"HapticTouchpad", BuildReportDescriptor(HapticLayout())},
        {"HapticTouchpadWithoutIntensity", BuildReportDescriptor(WithoutIntensity())},
    };
}

}  // namespace parity
