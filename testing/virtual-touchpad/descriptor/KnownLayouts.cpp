#include "testing/virtual-touchpad/descriptor/KnownLayouts.h"

#include <stdexcept>

namespace virtual_touchpad {
namespace {

TouchpadLayout Versioned(std::uint16_t version, const std::vector<std::uint8_t>& inputReportIds) {
    TouchpadLayout layout;
    layout.versionNumber = version;
    layout.inputReportIds = inputReportIds;
    return layout;
}

TouchpadLayout WithRequestIn(std::uint8_t reportId) {
    TouchpadLayout layout;
    layout.requestReportId = reportId;
    return layout;
}

TouchpadLayout WithoutRequest() {
    TouchpadLayout layout;
    layout.hasRequest = false;
    return layout;
}

TouchpadLayout WithoutFeatureReports() {
    TouchpadLayout layout;
    layout.hasFeatureReport = false;
    return layout;
}

TouchpadLayout WithActiveUsagesAsArray() {
    TouchpadLayout layout;
    layout.activeUsagesAsArray = true;
    return layout;
}

TouchpadLayout OfAnotherVendor() {
    TouchpadLayout layout = Versioned(98, {kSecondLayoutReportId});
    layout.vendorId = 0x1A2B;
    return layout;
}

TouchpadLayout AsBareAsItGets() {
    TouchpadLayout layout = WithoutRequest();
    layout.hasFeatureReport = false;
    layout.activeUsagesAsArray = true;
    layout.inputReportIds = {kSecondLayoutReportId};
    layout.versionNumber = 0;
    return layout;
}

}  // namespace

const std::vector<KnownLayout>& KnownLayouts() {
    static const std::vector<KnownLayout> layouts{
        {"Usual", {}},
        {"OldFirmware", Versioned(98, {kButtonReportId})},
        {"RequestInTheSecondLayoutsReport", WithRequestIn(kSecondLayoutReportId)},
        {"WithoutRequest", WithoutRequest()},
        {"WithoutFeatureReports", WithoutFeatureReports()},
        {"ActiveUsagesAsArray", WithActiveUsagesAsArray()},
        {"SecondLayout", Versioned(99, {kSecondLayoutReportId})},
        {"SecondLayoutWithOldFirmware", Versioned(98, {kSecondLayoutReportId})},
        // A usage in two reports is catalogued with its later capability.
        {"BothLayouts", Versioned(98, {kButtonReportId, kSecondLayoutReportId})},
        {"BothLayoutsTheSecondFirst", Versioned(98, {kSecondLayoutReportId, kButtonReportId})},
        {"OfAnotherVendor", OfAnotherVendor()},
        {"AsBareAsItGets", AsBareAsItGets()},
    };
    return layouts;
}

const TouchpadLayout& LayoutNamed(const std::string& name) {
    for (const KnownLayout& known : KnownLayouts()) {
        if (known.name == name) return known.layout;
    }
    throw std::out_of_range("no layout is named " + name);
}

}  // namespace virtual_touchpad
