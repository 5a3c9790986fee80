// Unknown button ids, levels and modes, and a touchpad that is gone.
#include "testing/kit/native/ExportsTest.h"
#include "testing/kit/native/WrittenReports.h"

namespace {

using namespace kit;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// --- button ids ----------------------------------------------------------------------------------

class UnknownButton : public ExportsTest, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(UnknownButton, IsAcceptedAndDrivesNoLight) {
    OpenAndLight();
    EXPECT_EQ(EnableSingleButton(GetParam(), 1), 1);
    EXPECT_EQ(SetButtonVisible(GetParam(), 1), 1);
    EXPECT_EQ(SetButtonLight(GetParam(), 1), 1);
    EXPECT_THAT(WrittenReports(session_, *device_), IsEmpty());
    EXPECT_EQ(SetButtonBreathing(GetParam(), 1), 1);
    EXPECT_THAT(WrittenReports(session_, *device_), ElementsAre(AllLit()));
    const std::string id = std::to_string(static_cast<std::int32_t>(GetParam()));
    EXPECT_THAT(LogOf("EnableButton"),
                Contains("INFO EnableButton: EnableButton button(" + id + "), enable(1)"));
}

TEST_P(UnknownButton, NeverReadsAsEnabled) {
    Open();
    EXPECT_EQ(IsSingleButtonEnabled(GetParam()), 0);
    EXPECT_EQ(EnableSingleButton(GetParam(), 1), 1);
    EXPECT_EQ(IsSingleButtonEnabled(GetParam()), 0);
    EXPECT_TRUE(session_.EnableButtonBreathing(GetParam(), true));
    EXPECT_FALSE(session_.IsButtonBreathingEnabled(GetParam()));
}

TEST_P(UnknownButton, MayBeQueriedWithoutASession) {
    EXPECT_EQ(IsSingleButtonEnabled(GetParam()), 0);
    EXPECT_EQ(EnableSingleButton(GetParam(), 1), 0);
    EXPECT_THAT(machine_.CallTexts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Ids, UnknownButton,
                         testing::Values(4U, 7U, 0x100U, 0x80000000U, 0xFFFFFFFFU));

using UnknownButtons = ExportsTest;

TEST_F(UnknownButtons, ByTheThousandDoNotDisturbTheKnownOnes) {
    OpenAndLight();
    for (std::uint32_t id = 4; id < 5000; ++id) {
        ASSERT_EQ(IsSingleButtonEnabled(id), 0);
    }
    SetButtonLight(VELA_BUTTON_CAMERA, 1);
    EXPECT_THAT(WrittenReports(session_, *device_),
                ElementsAre(LightReport(
                    "camera on 3, microphone off 3, chat 3, share screen 3; all active")));
}

// --- a touchpad that is gone ---------------------------------------------------------------------

class VanishedTouchpad : public ExportsTest, public testing::WithParamInterface<bool> {
 protected:
    // The absence of a fixed touchpad shows only in failing calls; a detachable one is probed.
    void OpenAndUnplug() {
        ASSERT_NO_FATAL_FAILURE(Open(GetParam() ? DetachableLayout() : kit::TouchpadLayout{}));
        ASSERT_EQ(IsDetachable(), GetParam() ? 1 : 0);
        ASSERT_TRUE(device_->WaitForPendingReads());
        device_->Unplug();
        device_->ForgetOutputs();
    }
};

TEST_P(VanishedTouchpad, LetsEveryExportReturn) {
    OpenAndUnplug();
    EXPECT_EQ(EnableFeature(1), 1);
    EXPECT_EQ(IsFeatureEnabled(), 1);
    EXPECT_EQ(Activate(VELA_SUSPENDED), 1);
    EXPECT_EQ(EnableSingleButton(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(IsSingleButtonEnabled(VELA_BUTTON_CAMERA), 1);
    EXPECT_EQ(EnableChatBreathing(1), 1);
    EXPECT_EQ(SetButtonVisible(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(SetButtonBreathing(VELA_BUTTON_CHAT, 1), 1);
    SetVelaBrightness(9);
    EXPECT_EQ(GetVelaBrightness(), 9U);
    EXPECT_EQ(SetClickMode(1, 300), 0);
    EXPECT_EQ(GetClickMode(), 0U);
    EXPECT_EQ(UpdateVelaState(), 1);
    EXPECT_EQ(IsSupportBiDirectionSwipe(), 1);
    EXPECT_EQ(IsVelaPresent(), GetParam() ? 0 : 1);
    EXPECT_EQ(Init(), VELA_INIT_NOT_FOUND);
    EXPECT_EQ(UnInit(), 1);
    EXPECT_THAT(device_->Outputs(), IsEmpty());
    EXPECT_EQ(IsVelaPresent(), 0);
    EXPECT_THAT(machine_.Misuse(), IsEmpty());
}

TEST_P(VanishedTouchpad, IsOpenedAnewWhenItComesBack) {
    OpenAndUnplug();
    EXPECT_EQ(UnInit(), 1);
    device_->PlugIn();
    EXPECT_EQ(Init(), 1);
    EXPECT_EQ(EnableFeature(1), 1);
    EXPECT_TRUE(device_->WaitForOutputs(1));
    EXPECT_EQ(IsVelaPresent(), 1);
}

INSTANTIATE_TEST_SUITE_P(Touchpads, VanishedTouchpad, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& test) {
                             return test.param ? "Detachable" : "Fixed";
                         });

}  // namespace
