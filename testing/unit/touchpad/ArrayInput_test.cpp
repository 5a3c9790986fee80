// Touchpads that report their pressed usages in an array, in any order, unknown ones included.
#include "testing/kit/native/InputTest.h"
#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace {

using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;
using virtual_touchpad::CollectionKind;
using virtual_touchpad::kDataArray;
using virtual_touchpad::MainItem;
using virtual_touchpad::ReportDescriptorBuilder;

// The input reports have an array of three usages 0x3E to 0x4A, then a value that is no firmware
// state. The output reports are the usual ones.
class ArrayInputTest : public InputTest {
 protected:
    void OpenAndLightArray(std::uint8_t reportId) {
        simulator::DeviceDescription description = kit::Describe({});
        kit::TouchpadLayout outputs;
        outputs.inputReportIds = {};
        const Bytes usual = virtual_touchpad::BuildReportDescriptor(outputs);
        ReportDescriptorBuilder builder;
        builder.UsagePage(0xFF80).Usage(0x80).Collection(CollectionKind::Application);
        const std::size_t head = builder.Bytes().size();
        builder.ReportId(reportId)
            .LogicalMinimum(1)
            .LogicalMaximum(13)
            .ReportSize(8)
            .ReportCount(3)
            .UsageMinimum(0x3E)
            .UsageMaximum(0x4A)
            .Main(MainItem::Input, kDataArray)
            .Value(MainItem::Input, 0x4B, 8, 0xFF);
        builder.Raw(Bytes(usual.begin() + static_cast<std::ptrdiff_t>(head), usual.end()));
        description.reportDescriptor = builder.Bytes();
        device_ = machine_.Plug(description);
        ASSERT_EQ(OpenSession(), vela::kHidOpen);
        session_.Enable(true);
        session_.Activate(vela::kActive);
        for (std::uint32_t button = 0; button < 4; ++button) {
            session_.EnableButton(button, true);
            session_.SetButtonVisible(button, true);
        }
        Settle();
        machine_.ForgetCalls();
        HostCallbacks::Reset();
    }

    static std::uint8_t Slot(std::uint16_t usage) {
        return static_cast<std::uint8_t>(usage - 0x3E + 1);
    }
};

TEST_F(ArrayInputTest, UsagesAreSortedHoweverTheTouchpadReportsThem) {
    OpenAndLightArray(1);
    Receive({1, Slot(0x47), Slot(0x43), Slot(0x41), 0});
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1", "press 2 1", "status 3"));
}

TEST_F(ArrayInputTest, EveryReportedPressCounts) {
    OpenAndLightArray(1);
    Receive({1, Slot(0x41), 0, Slot(0x41), 0});
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 0 1", "press 0 0"));
}

TEST_F(ArrayInputTest, OtherUsagesAreNothingAndNoFirmwareState) {
    OpenAndLightArray(1);
    Receive({1, Slot(0x3F), Slot(0x48), Slot(0x4A), 0xFF});
    EXPECT_EQ(machine_.CountCalls("HidP_GetUsageValue"), 0U);
    EXPECT_THAT(HostCallbacks::Calls(), IsEmpty());
    EXPECT_THAT(LogOf("HandleInputReport"), IsEmpty());
}

TEST_F(ArrayInputTest, OtherUsagesDoNotEndTheReport) {
    OpenAndLightArray(0x10);
    Receive({0x10, Slot(0x4A), Slot(0x3E), Slot(0x42), 0});
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("press 3 1"));
    EXPECT_THAT(
        LogOf("HandleInputReport"),
        ElementsAre("INFO HandleInputReport: Handle HID output report for share screen button"));
}

TEST_F(ArrayInputTest, ATouchpadWithoutAFirmwareStateCountsAsAllClear) {
    OpenAndLightArray(1);
    Receive({1, Slot(0x45), 0, 0, 0});
    Receive({1, 0, 0, 0, 0xFF});
    EXPECT_THAT(HostCallbacks::Calls(), ElementsAre("status 2", "status 0"));
    TryUpdate();
    EXPECT_THAT(LogOf("Update"), IsEmpty());
    EXPECT_THAT(LogOf("HandleInputReport"),
                ElementsAre("INFO HandleInputReport: Handle HID output report for GESTURE",
                            "INFO HandleInputReport: Vela FW state: TouchpadDisable(0), "
                            "TouchpadEnable(0), SwipeOff(0)"));
}

}  // namespace
