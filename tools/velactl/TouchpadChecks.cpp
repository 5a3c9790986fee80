#include "tools/velactl/TouchpadChecks.h"

#include "hid/HIDDevicePaths.h"
#include "tools/velactl/HidCollections.h"
#include "tools/velactl/Text.h"
#include "tools/velactl/TouchpadParts.h"
#include "touchpad/TouchpadDiscovery.h"

namespace velactl {
namespace {

// A collection that is not the touchpad, but nearly.
CheckResult NearlyATouchpad(const HidCollection& collection) {
    const std::string vendor = Hex(collection.examination.attributes.VendorID);
    const std::string finding = "vendor " + vendor + ", product " +
                                Hex(collection.examination.attributes.ProductID) + ": " +
                                collection.reasonAgainst;
    if (collection.examination.verdict == vela::Verdict::kOtherVendor) {
        return Failed(finding, "if it is a touchpad with meeting buttons, add a section [" +
                                   vendor.substr(2) + "] to \"Vela.ini\" beside the library");
    }
    return Failed(finding,
                  "its report descriptor is not that of a touchpad with meeting buttons: "
                  "update its firmware");
}

CheckResult NoTouchpad(const std::vector<HidCollection>& collections) {
    using vela::Verdict;
    for (const HidCollection& collection : collections) {
        const Verdict verdict = collection.examination.verdict;
        if (verdict == Verdict::kOtherVendor || verdict == Verdict::kNoWantedValueCap ||
            verdict == Verdict::kNoWantedButtonCap) {
            return NearlyATouchpad(collection);
        }
    }
    return Failed(
        "none of " + std::to_string(collections.size()) + " HID collections is the touchpad",
        "attach it; if \"velactl devices\" lists it, its verdict tells what is "
        "missing");
}

}  // namespace

CheckResult CheckDevice(DoctorContext& doctor) {
    if (!doctor.isLoaded) return Skipped("no library to ask");
    vela::TouchpadDiscovery query;
    const auto collections = ExamineCollections(vela::GetHidDevicePathList(), query);
    const HidCollection* const chosen = ChosenCollection(collections);
    if (chosen == nullptr) return NoTouchpad(collections);
    doctor.isPresent = true;
    doctor.missingParts = MissingParts(chosen->examination);
    const HIDD_ATTRIBUTES& attributes = chosen->examination.attributes;
    return Ok("vendor " + Hex(attributes.VendorID) + ", product " + Hex(attributes.ProductID) +
              ", firmware " + Hex(attributes.VersionNumber));
}

// cppcheck-suppress constParameter ; a row of checks holds functions of one type
CheckResult CheckParts(DoctorContext& doctor) {
    if (!doctor.isPresent) return Skipped("no touchpad to examine");
    if (doctor.missingParts.empty()) return Ok("four buttons with their lights");
    return Failed("its reports lack " + Joined(doctor.missingParts),
                  "the others work; update the touchpad's firmware");
}

}  // namespace velactl
