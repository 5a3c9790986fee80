// The records of touchpads that support the swipe gesture in both directions.
#include "touchpad/BiDirectionSwipe.h"

#include <gtest/gtest.h>

#include "testing/kit/native/AgentLog.h"

namespace {

// The newest touchpad without the gesture.
struct Touchpad {
    std::uint16_t vendorId = 0x0488;
    std::uint16_t versionNumber = 98;
    std::uint16_t usagePage = 0xFF80;
    std::uint16_t usage = 0x80;
    const wchar_t* key = L"HID_INPUT_69";
    std::uint8_t reportId = 0x10;
};

struct SwipeCase {
    const char* name;
    void (*change)(Touchpad&);
    bool supported;
};

class SwipeOfRecord : public testing::TestWithParam<SwipeCase> {};

TEST_P(SwipeOfRecord, DependsOnFamilyAndFirmware) {
    const kit::AgentLog log;
    Touchpad touchpad;
    GetParam().change(touchpad);
    vela::CHIDInformation record;
    record.attributes.VendorID = touchpad.vendorId;
    record.attributes.VersionNumber = touchpad.versionNumber;
    record.caps.UsagePage = touchpad.usagePage;
    record.caps.Usage = touchpad.usage;
    record.buttonCapsMap[touchpad.key].ReportID = touchpad.reportId;
    EXPECT_EQ(vela::SupportsBiDirectionSwipe(record), GetParam().supported);
}

INSTANTIATE_TEST_SUITE_P(
    Records, SwipeOfRecord,
    testing::Values(
        SwipeCase{"OlderFamily", [](Touchpad&) {}, false},
        SwipeCase{"OldestFirmware", [](Touchpad& is) { is.versionNumber = 0; }, false},
        SwipeCase{"FirstFirmwareWithIt", [](Touchpad& is) { is.versionNumber = 99; }, true},
        SwipeCase{"LastFirmware", [](Touchpad& is) { is.versionNumber = 0xFFFF; }, true},
        SwipeCase{"OtherVendor", [](Touchpad& is) { is.vendorId = 0x0489; }, true},
        SwipeCase{"OtherPage", [](Touchpad& is) { is.usagePage = 0xFF81; }, true},
        SwipeCase{"OtherUsage", [](Touchpad& is) { is.usage = 0x81; }, true},
        SwipeCase{"OtherLayout", [](Touchpad& is) { is.reportId = 0x01; }, true},
        SwipeCase{"AnOutputIsNoGesture", [](Touchpad& is) { is.key = L"HID_OUTPUT_69"; }, true},
        SwipeCase{"NoGesture", [](Touchpad& is) { is.key = L"HID_INPUT_68"; }, true}),
    [](const testing::TestParamInfo<SwipeCase>& test) { return test.param.name; });

}  // namespace
