// The click mode, a value of the touchpad's feature report.
#include <hidsdi.h>

#include "testing/kit/native/TouchpadTest.h"
#include "testing/virtual-touchpad/descriptor/ReportDescriptorBuilder.h"
#include "touchpad/ClickMode.h"

namespace {

using simulator::Fault;
using simulator::WriteBehaviour;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;
using virtual_touchpad::CollectionKind;
using virtual_touchpad::kClickModeReportId;
using virtual_touchpad::MainItem;
using virtual_touchpad::ReportDescriptorBuilder;

// Returns the feature report as the device stores it: 0x61, 0x62 (two bytes) and 0x63.
Bytes ClickModeReport(std::uint16_t value) {
    return {kClickModeReportId, 0x11, static_cast<std::uint8_t>(value),
            static_cast<std::uint8_t>(value >> 8U), 0x33};
}

class ClickModeTest : public TouchpadTest {
 protected:
    void OpenWithClickMode(std::uint16_t value) {
        ASSERT_NO_FATAL_FAILURE(Open());
        device_->SetFeature(ClickModeReport(value));
        machine_.ForgetCalls();
    }

    // Opens a touchpad with the usual input and output and with these feature reports.
    void OpenWithFeatures(ReportDescriptorBuilder features) {
        ReportDescriptorBuilder builder;
        builder.UsagePage(0xFF80)
            .Usage(0x80)
            .Collection(CollectionKind::Application)
            .ReportId(1)
            .Buttons(MainItem::Input, 0x40, 0x47)
            .Buttons(MainItem::Output, 0x01, 0x08)
            .Raw(features.Bytes())
            .EndCollection();
        simulator::DeviceDescription description = Describe({});
        description.reportDescriptor = builder.Bytes();
        device_ = machine_.Plug(description);
        ASSERT_EQ(OpenSession(), vela::kHidOpen);
        machine_.ForgetCalls();
    }

    std::vector<std::string> FeatureCalls() const {
        return machine_.CallTexts(
            {"HidD_GetFeature", "HidP_GetUsageValue", "HidP_SetUsageValue", "HidD_SetFeature"});
    }
};

TEST_F(ClickModeTest, ModeOneWritesTheValueAndKeepsTheOtherFields) {
    OpenWithClickMode(7);
    EXPECT_TRUE(session_.SetClickMode(1, 300));
    EXPECT_THAT(device_->FeatureWrites(), ElementsAre(ClickModeReport(300)));
    EXPECT_TRUE(session_.GetClickMode());
    EXPECT_THAT(LogOf("SetClickMode"),
                ElementsAre("INFO SetClickMode: SetClickMode (1, 300) completed."));
    EXPECT_THAT(LogOf("GetClickMode"),
                ElementsAre("INFO GetClickMode: GetClickMode (300) succeed."));
}

TEST_F(ClickModeTest, ModeZeroWritesZeroWhateverTheValue) {
    OpenWithClickMode(7);
    EXPECT_TRUE(session_.SetClickMode(0, 300));
    EXPECT_THAT(device_->FeatureWrites(), ElementsAre(ClickModeReport(0)));
    EXPECT_FALSE(session_.GetClickMode());
    EXPECT_THAT(LogOf("SetClickMode"),
                ElementsAre("INFO SetClickMode: SetClickMode (0, 300) completed."));
    EXPECT_THAT(LogOf("GetClickMode"), ElementsAre("INFO GetClickMode: GetClickMode (0) succeed."));
}

TEST_F(ClickModeTest, SetClickModeReadsChangesAndWritesOnTheCallersThread) {
    OpenWithClickMode(7);
    session_.SetClickMode(1, 300);
    EXPECT_THAT(FeatureCalls(), ElementsAre("HidD_GetFeature(file#3, 5)",
                                            "HidP_SetUsageValue(feature, 0xff80, 0, 0x62, 0x12c)",
                                            "HidD_SetFeature(file#3, 04 11 2c 01 33)"));
    for (const simulator::Call& call : machine_.Calls()) {
        if (call.function == "HidD_GetFeature" || call.function == "HidD_SetFeature") {
            EXPECT_EQ(call.thread, std::this_thread::get_id()) << call.Text();
        }
    }
}

TEST_F(ClickModeTest, GetClickModeReadsOnly) {
    OpenWithClickMode(7);
    session_.GetClickMode();
    EXPECT_THAT(FeatureCalls(), ElementsAre("HidD_GetFeature(file#3, 5)",
                                            "HidP_GetUsageValue(feature, 0xff80, 0, 0x62)"));
}

class OtherClickMode : public ClickModeTest, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(OtherClickMode, WritesTheReportBackUnchanged) {
    OpenWithClickMode(7);
    EXPECT_TRUE(session_.SetClickMode(GetParam(), 5));
    EXPECT_THAT(device_->FeatureWrites(), ElementsAre(ClickModeReport(7)));
    EXPECT_EQ(machine_.CountCalls("HidP_SetUsageValue"), 0U);
    EXPECT_THAT(
        LogOf("SetClickMode"),
        ElementsAre("INFO SetClickMode: SetClickMode (" +
                    std::to_string(static_cast<std::int32_t>(GetParam())) + ", 5) completed."));
}

INSTANTIATE_TEST_SUITE_P(Modes, OtherClickMode, testing::Values(2U, 7U, 256U, 0xFFFFFFFFU));

TEST_F(ClickModeTest, LeavesTheRangeOfTheValueToTheDevice) {
    OpenWithClickMode(7);
    EXPECT_TRUE(session_.SetClickMode(1, 0xFFFF));
    EXPECT_THAT(device_->FeatureWrites(), ElementsAre(ClickModeReport(0xFFFF)));
}

TEST_F(ClickModeTest, UsesTheReportThatHoldsTheUsageAndTheLongestReportsLength) {
    OpenWithFeatures(ReportDescriptorBuilder()
                         .ReportId(5)
                         .Value(MainItem::Feature, 0x64, 32, 0xFF)
                         .ReportId(7)
                         .Value(MainItem::Feature, 0x62, 16, 0xFFFF));
    device_->SetFeature({7, 0x34, 0x12});
    EXPECT_TRUE(session_.GetClickMode());
    EXPECT_THAT(FeatureCalls(), testing::Contains("HidD_GetFeature(file#3, 5)"));
    EXPECT_TRUE(session_.SetClickMode(1, 0x4321));
    EXPECT_EQ(device_->Feature(7), (Bytes{7, 0x21, 0x43}));
    EXPECT_EQ(device_->Feature(5), (Bytes{5, 0, 0, 0, 0}));
    EXPECT_THAT(LogOf("GetClickMode"),
                ElementsAre("INFO GetClickMode: GetClickMode (4660) succeed."));
}

TEST_F(ClickModeTest, IsNotHeldUpByAWriteInFlight) {
    OpenWithClickMode(7);
    device_->SetWriteBehaviour(WriteBehaviour::Hold);
    session_.SetButtonLight(vela::BUTTON_ID_CAMERA, true);
    ASSERT_TRUE(device_->WaitForHeldWrites());
    EXPECT_TRUE(session_.SetClickMode(1, 300));
    EXPECT_TRUE(session_.GetClickMode());
    EXPECT_EQ(device_->HeldWrites(), 1U);
}

// --- failures ------------------------------------------------------------------------------------

TEST_F(ClickModeTest, IsRefusedSilentlyWithoutASession) {
    Plug();
    EXPECT_FALSE(session_.SetClickMode(1, 300));
    EXPECT_FALSE(session_.GetClickMode());
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(ClickModeTest, IsRefusedSilentlyWithoutFeatureReports) {
    TouchpadLayout layout;
    layout.hasFeatureReport = false;
    Open(layout);
    EXPECT_FALSE(session_.SetClickMode(1, 300));
    EXPECT_FALSE(session_.GetClickMode());
    EXPECT_THAT(FeatureCalls(), IsEmpty());
    EXPECT_THAT(LogOf("SetClickMode"), IsEmpty());
    EXPECT_THAT(LogOf("GetClickMode"), IsEmpty());
}

TEST_F(ClickModeTest, NeedsTheUsageInAFeatureReport) {
    OpenWithFeatures(ReportDescriptorBuilder()
                         .ReportId(4)
                         .Value(MainItem::Feature, 0x61, 8, 0xFF)
                         .ReportId(5)
                         .Value(MainItem::Input, 0x62, 8, 0xFF));
    EXPECT_FALSE(session_.SetClickMode(1, 300));
    EXPECT_FALSE(session_.GetClickMode());
    EXPECT_THAT(FeatureCalls(), IsEmpty());
    EXPECT_THAT(LogOf("SetClickMode"),
                ElementsAre("WARNING SetClickMode: GetValueCaps for HidP_Feature, "
                            "USAGE_DBLTAP_DURATION_MAX failed"));
    EXPECT_THAT(LogOf("GetClickMode"),
                ElementsAre("WARNING GetClickMode: GetClickMode GetValueCaps for HidP_Feature, "
                            "USAGE_DBLTAP_DURATION_MAX failed"));
}

TEST_F(ClickModeTest, AReportThatCannotBeReadIsNotWritten) {
    OpenWithClickMode(7);
    machine_.FailAlways("HidD_GetFeature", Fault::Error(31));
    EXPECT_FALSE(session_.SetClickMode(1, 300));
    EXPECT_FALSE(session_.GetClickMode());
    EXPECT_THAT(device_->FeatureWrites(), IsEmpty());
    EXPECT_EQ(machine_.CountCalls("HidP_GetUsageValue"), 0U);
    EXPECT_THAT(LogOf("SetClickMode"),
                ElementsAre("ERROR SetClickMode: HidD_GetFeature failed, the last error( 31)"));
    EXPECT_THAT(LogOf("GetClickMode"),
                ElementsAre("ERROR GetClickMode: HidD_GetFeature failed, the last error (31)"));
}

TEST_F(ClickModeTest, AValueThatCannotBeSetIsNotWrittenAndTheAttemptStillEndsInItsLine) {
    OpenWithClickMode(7);
    machine_.FailNext("HidP_SetUsageValue", Fault::Status(HIDP_STATUS_USAGE_NOT_FOUND));
    EXPECT_FALSE(session_.SetClickMode(1, 300));
    EXPECT_THAT(device_->FeatureWrites(), IsEmpty());
    EXPECT_THAT(LogOf("SetClickMode"),
                ElementsAre("ERROR SetClickMode: HidP_SetUsageValue failed, the status (c0110004)",
                            "INFO SetClickMode: SetClickMode (1, 300) completed."));
}

TEST_F(ClickModeTest, AFailedWriteIsLoggedAndTheAttemptStillEndsInItsLine) {
    OpenWithClickMode(7);
    machine_.FailNext("HidD_SetFeature", Fault::Error(31));
    EXPECT_FALSE(session_.SetClickMode(0, 300));
    EXPECT_EQ(device_->Feature(kClickModeReportId), ClickModeReport(7));
    EXPECT_THAT(LogOf("SetClickMode"),
                ElementsAre("ERROR SetClickMode: HidD_SetFeature failed, the last error (31)",
                            "INFO SetClickMode: SetClickMode (0, 300) completed."));
}

TEST_F(ClickModeTest, AValueThatCannotBeReadCountsAsOff) {
    OpenWithClickMode(7);
    machine_.FailNext("HidP_GetUsageValue", Fault::Status(HIDP_STATUS_INCOMPATIBLE_REPORT_ID));
    EXPECT_FALSE(session_.GetClickMode());
    EXPECT_THAT(
        LogOf("GetClickMode"),
        ElementsAre("ERROR GetClickMode: HidP_GetUsageValue failed, the status (c011000a)"));
}

TEST_F(ClickModeTest, WorksAgainAfterAFailure) {
    OpenWithClickMode(7);
    machine_.FailNext("HidD_GetFeature", Fault::Error(31));
    EXPECT_FALSE(session_.SetClickMode(1, 300));
    EXPECT_TRUE(session_.SetClickMode(1, 300));
    EXPECT_TRUE(session_.GetClickMode());
}

TEST_F(ClickModeTest, AVanishedTouchpadIsLoggedWithItsError) {
    OpenWithClickMode(7);
    device_->Unplug();
    EXPECT_FALSE(session_.SetClickMode(1, 300));
    EXPECT_FALSE(session_.GetClickMode());
    EXPECT_THAT(LogOf("SetClickMode"),
                ElementsAre("ERROR SetClickMode: HidD_GetFeature failed, the last error( 1167)"));
    EXPECT_THAT(LogOf("GetClickMode"),
                ElementsAre("ERROR GetClickMode: HidD_GetFeature failed, the last error (1167)"));
}

TEST_F(ClickModeTest, OfATouchpadThatIsNotOpenIsNeitherReadNorSet) {
    vela::OpenTouchpad closed(nullptr, nullptr);
    EXPECT_FALSE(vela::GetClickMode(closed));
    EXPECT_FALSE(vela::SetClickMode(closed, 1, 300));
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
}

}  // namespace
