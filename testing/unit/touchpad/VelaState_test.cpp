// The request for the touchpad's state.
#include <optional>
#include <thread>

#include "testing/kit/native/InputTest.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kRequested = "INFO UpdateVelaState: UpdateVelaState.";

class VelaStateTest : public InputTest {
 protected:
    // Writes a light report and returns the first report written: an earlier state request, if any.
    Bytes LastWrittenBeforeALightReport() {
        device_->ForgetOutputs();
        session_.SetButtonBreathing(vela::BUTTON_ID_CHAT, false);
        return OutputNumber(1);
    }

    // Returns the calls that this thread made; the reader makes its first ones at any time.
    std::vector<std::string> OwnCalls() const {
        std::vector<std::string> texts;
        for (const simulator::Call& call : machine_.Calls()) {
            if (call.thread == std::this_thread::get_id()) texts.push_back(call.Text());
        }
        return texts;
    }
};

TEST_F(VelaStateTest, IsRefusedSilentlyWithoutASession) {
    Plug();
    EXPECT_FALSE(session_.UpdateVelaState());
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
    EXPECT_THAT(log_.Texts(), IsEmpty());
}

TEST_F(VelaStateTest, IsRequestedByOneBitInAReportOfItsOwn) {
    Open();
    machine_.ForgetCalls();
    EXPECT_TRUE(session_.UpdateVelaState());
    EXPECT_THAT(machine_.CallTexts({"HidP_SetUsageValue", "HidP_SetUsages", "HidP_UnsetUsages"}),
                ElementsAre("HidP_SetUsages(output, 0xff80, 0, [0x30], 1)"));
    EXPECT_EQ(OutputNumber(1), RequestReport());
    EXPECT_THAT(LogOf("UpdateVelaState"), ElementsAre(kRequested));
}

TEST_F(VelaStateTest, IsRequestedInTheReportThatTheTouchpadNames) {
    TouchpadLayout layout;
    layout.requestReportId = 0x11;
    Open(layout);
    EXPECT_TRUE(session_.UpdateVelaState());
    EXPECT_EQ(OutputNumber(1), RequestReport(0x11));
}

TEST_F(VelaStateTest, IsRequestedEveryTimeAlthoughTheReportIsTheSame) {
    Open();
    EXPECT_TRUE(session_.UpdateVelaState());
    EXPECT_TRUE(session_.UpdateVelaState());
    ASSERT_TRUE(device_->WaitForOutputs(2));
    EXPECT_THAT(device_->Outputs(), ElementsAre(RequestReport(), RequestReport()));
}

TEST_F(VelaStateTest, DoesNotMakeTheLastLightReportNew) {
    OpenAndLight();
    EXPECT_TRUE(session_.UpdateVelaState());
    ASSERT_EQ(OutputNumber(1), RequestReport());
    device_->ForgetOutputs();
    session_.SetButtonVisible(vela::BUTTON_ID_CAMERA, true);
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(VelaStateTest, NeedsNeitherTheFeatureNorAnActiveState) {
    Open();
    EXPECT_FALSE(session_.IsEnabled());
    EXPECT_FALSE(session_.IsActivated());
    EXPECT_TRUE(session_.UpdateVelaState());
    EXPECT_EQ(OutputNumber(1), RequestReport());
}

TEST_F(VelaStateTest, IsRequestedWhileTheTouchpadIsDisabled) {
    OpenAndLight();
    ReceiveFirmwareState(kit::kFwSwipeOff | kit::kFwTouchpadDisable);
    EXPECT_TRUE(session_.UpdateVelaState());
    EXPECT_EQ(OutputNumber(1), RequestReport());
    EXPECT_THAT(LogOf("Update"), IsEmpty());
}

TEST_F(VelaStateTest, IsQueuedEvenWhenTheTouchpadIsGone) {
    Open(DetachableLayout());
    machine_.FailAlways("HidD_GetPreparsedData", Fault::Error(1167));
    EXPECT_TRUE(session_.UpdateVelaState());
    EXPECT_THAT(LogOf("UpdateVelaState"), ElementsAre(kRequested));
}

// --- touchpads without it ------------------------------------------------------------------------

TEST_F(VelaStateTest, IsRefusedSilentlyByATouchpadWithoutTheRequest) {
    TouchpadLayout layout;
    layout.hasRequest = false;
    Open(layout);
    machine_.ForgetCalls();
    EXPECT_FALSE(session_.UpdateVelaState());
    EXPECT_THAT(OwnCalls(), IsEmpty());
    EXPECT_EQ(LastWrittenBeforeALightReport()[0], virtual_touchpad::kLightReportId);
    EXPECT_THAT(LogOf("UpdateVelaState"), IsEmpty());
}

TEST_F(VelaStateTest, IsRefusedSilentlyInTheSecondReportLayout) {
    TouchpadLayout layout;
    layout.requestReportId = 0x10;
    Open(layout);
    machine_.ForgetCalls();
    EXPECT_FALSE(session_.UpdateVelaState());
    EXPECT_THAT(OwnCalls(), IsEmpty());
    EXPECT_EQ(LastWrittenBeforeALightReport()[0], virtual_touchpad::kLightReportId);
    EXPECT_THAT(LogOf("UpdateVelaState"), IsEmpty());
}

TEST_F(VelaStateTest, IsRequestedFromATouchpadWhoseInputsAreInTheSecondReportLayout) {
    TouchpadLayout layout;
    layout.inputReportIds = {0x10};
    Open(layout);
    EXPECT_TRUE(session_.UpdateVelaState());
    EXPECT_EQ(OutputNumber(1), RequestReport());
}

// --- failures ------------------------------------------------------------------------------------

TEST_F(VelaStateTest, ThatCannotBeSetIsRefusedWithAWarningAndNotQueued) {
    OpenAndLight();
    machine_.FailNext("HidP_SetUsages", Fault::Result(static_cast<std::int32_t>(0xC0110004), 87));
    EXPECT_FALSE(session_.UpdateVelaState());
    EXPECT_THAT(Written(), IsEmpty());
    // The second line is logged by Written, which requests the state too.
    EXPECT_THAT(
        LogOf("UpdateVelaState"),
        testing::IsSupersetOf({std::string("WARNING UpdateVelaState: HidP_SetUsages HidP_Output "
                                           "USAGE_REQUEST GetLastError(87)."),
                               kRequested}));
}

TEST_F(VelaStateTest, IsQueuedWhenTheStatusIsAnotherSuccess) {
    Open();
    machine_.FailNext("HidP_SetUsages", Fault::Status(0x00110001));
    EXPECT_TRUE(session_.UpdateVelaState());
    EXPECT_THAT(LogOf("UpdateVelaState"), ElementsAre(kRequested));
}

TEST_F(VelaStateTest, IsNotRequestedFromATouchpadThatIsClosedMeanwhile) {
    Open();
    machine_.SetFaultPolicy([this, host = std::this_thread::get_id()](const simulator::Call& call) {
        if (call.thread == host && call.function == "HidP_SetUsages") {
            std::thread([this] { EXPECT_TRUE(session_.Uninitialize()); }).join();
        }
        return std::optional<Fault>();
    });
    EXPECT_FALSE(session_.UpdateVelaState());
    EXPECT_THAT(LogOf("UpdateVelaState"), IsEmpty());
}

}  // namespace
