// A touchpad without output reports, so without lights.
#include "testing/kit/native/InputTest.h"
#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"

namespace {

using namespace kit;
using testing::IsEmpty;
using virtual_touchpad::CollectionKind;
using virtual_touchpad::MainItem;
using virtual_touchpad::ReportDescriptorBuilder;

class NoOutputReportTest : public InputTest {
 protected:
    NoOutputReportTest() {
        simulator::DeviceDescription description = kit::Describe({});
        description.reportDescriptor = ReportDescriptorBuilder()
                                           .UsagePage(0xFF80)
                                           .Usage(0x80)
                                           .Collection(CollectionKind::Application)
                                           .ReportId(1)
                                           .Buttons(MainItem::Input, 0x40, 0x47)
                                           .Value(MainItem::Input, 0x48, 8, 0xFF)
                                           .EndCollection()
                                           .Bytes();
        device_ = machine_.Plug(description);
    }

    void OpenActive() {
        ASSERT_EQ(OpenSession(), vela::kHidOpen);
        session_.Enable(true);
        session_.Activate(vela::kActive);
        for (std::uint32_t button = 0; button < 4; ++button) {
            session_.EnableButton(button, true);
            session_.SetButtonVisible(button, true);
        }
    }
};

TEST_F(NoOutputReportTest, NothingIsComposed) {
    OpenActive();
    session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
    EXPECT_THAT(machine_.CallTexts({"HidP_SetUsageValue", "HidP_SetUsages", "HidP_UnsetUsages"}),
                IsEmpty());
    EXPECT_THAT(LogOf("UpdateLedCtrl"), IsEmpty());
}

TEST_F(NoOutputReportTest, AnEmptyReportIsQueuedAllTheSame) {
    OpenActive();
    // Activate's report is forced; unforced ones equal the empty first report and are dropped.
    EXPECT_TRUE(machine_.WaitForCalls("WriteFile", 1));
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, true);
    EXPECT_TRUE(machine_.WaitForCalls("WriteFile", 2));
    EXPECT_EQ(machine_.CountCalls("WriteFile"), 2U);
    EXPECT_THAT(device_->Outputs(), IsEmpty());
}

TEST_F(NoOutputReportTest, TheStateCannotBeRequested) {
    OpenActive();
    EXPECT_FALSE(session_.UpdateVelaState());
    EXPECT_THAT(LogOf("UpdateVelaState"), IsEmpty());
}

TEST_F(NoOutputReportTest, PressesAreReportedAndTakenNote) {
    OpenActive();
    Receive({1, 0x02, 0});
    Receive({1, 0x02, 0});
    EXPECT_THAT(kit::HostCallbacks::Calls(), testing::IsSupersetOf({"press 0 1", "press 0 0"}));
}

}  // namespace
