// The reports that are written again although they are unchanged.
#include "testing/acceptance/TouchpadAcceptanceTest.h"

namespace acceptance {
namespace {

using virtual_touchpad::OutputReport;

class RepeatedReportsTest : public TouchpadAcceptanceTest {
 protected:
    std::vector<virtual_touchpad::Report> OutputsSince(std::uint64_t sequence) {
        std::vector<virtual_touchpad::Report> reports;
        for (const OutputReport& output : Touchpad().Device().OutputReports(sequence)) {
            reports.push_back(output.bytes);
        }
        return reports;
    }
};

bool CameraOn(const Lights& lights) { return lights.Brightness(0x20) == 3; }

TEST_F(RepeatedReportsTest, AReportLikeTheOneBeforeIsWrittenOnce) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    const std::uint64_t before = Touchpad().Device().LastSequence();
    // The share screen has one light, which does not depend on its state.
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_SHARE_SCREEN, 1), 1);
    EXPECT_EQ(agent_.SetButtonVisible(VELA_BUTTON_SHARE_SCREEN, 1), 1);
    agent_.SetVelaBrightness(3);
    EXPECT_EQ(agent_.EnableFeature(1), 1);
    EXPECT_EQ(agent_.EnableChatBreathing(0), 1);
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    ASSERT_TRUE(WaitForLights(CameraOn));
    EXPECT_EQ(Touchpad().Device().LastSequence(), before + 1);
}

TEST_F(RepeatedReportsTest, AForcedReportIsWrittenAlways) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    const std::uint64_t before = Touchpad().Device().LastSequence();
    for (int i = 0; i < 3; ++i) EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 0), 1);
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    ASSERT_TRUE(WaitForLights(CameraOn));
    const auto outputs = OutputsSince(before);
    ASSERT_EQ(outputs.size(), 4U);
    EXPECT_EQ(outputs[0], outputs[1]);
    EXPECT_EQ(outputs[1], outputs[2]);
}

TEST_F(RepeatedReportsTest, AStateRequestIsWrittenAlways) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    const std::uint64_t before = Touchpad().Device().LastSequence();
    EXPECT_EQ(agent_.UpdateVelaState(), 1);
    EXPECT_EQ(agent_.UpdateVelaState(), 1);
    const auto outputs = Touchpad().Device().WaitForOutputs(2, kPatience, before);
    ASSERT_EQ(outputs.size(), 2U);
    EXPECT_TRUE(virtual_touchpad::IsStateRequest(outputs[0]));
    EXPECT_TRUE(virtual_touchpad::IsStateRequest(outputs[1]));
}

// A report is compared with the last unforced one, even when a forced one was written later.
TEST_F(RepeatedReportsTest, AForcedReportDoesNotCountAsTheOneBefore) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    const std::uint64_t before = Touchpad().Device().LastSequence();
    EXPECT_EQ(agent_.Activate(2), 1);  // dark, forced
    EXPECT_EQ(agent_.SetButtonVisible(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(agent_.SetButtonVisible(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(agent_.UpdateVelaState(), 1);
    ASSERT_EQ(Touchpad().Device().WaitForOutputs(3, kPatience, before).size(), 3U);
    const auto outputs = OutputsSince(before);
    EXPECT_EQ(outputs[0], outputs[1]);
    EXPECT_EQ(outputs[2].front(), virtual_touchpad::kRequestReportId);
}

}  // namespace
}  // namespace acceptance
