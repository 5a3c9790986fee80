// The chat light's breathing: requested, started, continued, stopped.
#include <thread>

#include "testing/kit/native/CompositionTest.h"

namespace {

using simulator::Fault;
using namespace kit;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::uint32_t kChat = vela::BUTTON_ID_CHAT;
constexpr std::uint8_t kNone = 0;
constexpr std::uint8_t kStart = 8;
constexpr std::uint8_t kKeep = 15;

const Bytes kChatHidden = LightReport(
    "camera off 3, microphone off 3, share screen 3; camera, microphone, share screen active");

class BreathingTest : public CompositionTest {
 protected:
    // Opens a lit touchpad whose chat light may breathe.
    void OpenForBreathing() {
        ASSERT_NO_FATAL_FAILURE(OpenAndLight());
        session_.EnableButtonBreathing(kChat, true);
        Written();
    }
    void OpenBreathing() {
        ASSERT_NO_FATAL_FAILURE(OpenForBreathing());
        session_.SetButtonBreathing(kChat, true);
        ASSERT_THAT(Written(), ElementsAre(AllLit(kStart)));
    }

    std::vector<Bytes> Written() { return WrittenReports(session_, *device_); }
};

TEST_F(BreathingTest, IsStartedOnceThenKeptGoingAndThenStopped) {
    OpenForBreathing();
    EXPECT_TRUE(session_.SetButtonBreathing(kChat, true));
    EXPECT_THAT(Written(), ElementsAre(AllLit(kStart)));
    EXPECT_EQ(Compose(), AllLit(kKeep));
    EXPECT_EQ(Compose(), AllLit(kKeep));
    EXPECT_TRUE(session_.SetButtonBreathing(kChat, false));
    EXPECT_THAT(Written(), ElementsAre(AllLit(kNone)));
    EXPECT_EQ(Compose(), AllLit(kNone));
    EXPECT_THAT(ComposeLog(), IsEmpty());
}

TEST_F(BreathingTest, IsStartedAndStoppedWithALogLineEach) {
    OpenForBreathing();
    session_.SetButtonBreathing(kChat, true);
    session_.SetButtonBreathing(kChat, false);
    EXPECT_THAT(LogOf("SetButtonBreathing"),
                ElementsAre("INFO SetButtonBreathing: SetButtonBreathing for BUTTON_ID 2 (1)",
                            "INFO SetButtonBreathing: SetButtonBreathing for BUTTON_ID 2 (0)"));
}

TEST_F(BreathingTest, IsNotRunningAtFirst) {
    OpenForBreathing();
    EXPECT_EQ(Compose(), AllLit(kNone));
}

TEST_F(BreathingTest, IsStartedAnewByEveryRequest) {
    OpenBreathing();
    session_.SetButtonBreathing(kChat, true);
    EXPECT_THAT(Written(), ElementsAre(AllLit(kStart)));
    EXPECT_EQ(Compose(), AllLit(kKeep));
    session_.SetButtonBreathing(kChat, false);
    session_.SetButtonBreathing(kChat, true);
    EXPECT_THAT(Written(), ElementsAre(AllLit(kNone), AllLit(kStart)));
}

TEST_F(BreathingTest, DoesNotDependOnTheChatButtonsLight) {
    OpenBreathing();
    session_.SetButtonLight(kChat, true);
    EXPECT_THAT(Written(), ElementsAre(AllLit(kKeep)));
    session_.SetBrightness(0);
    EXPECT_THAT(Written(), ElementsAre(LightReport("breathing 15; all active")));
}

TEST_F(BreathingTest, IsShownByTheChatButtonOnly) {
    OpenForBreathing();
    for (const std::uint32_t button : {0U, 1U, 3U}) {
        session_.EnableButtonBreathing(button, true);
        session_.SetButtonBreathing(button, true);
    }
    EXPECT_THAT(Written(), ElementsAre(AllLit(kNone), AllLit(kNone), AllLit(kNone)));
}

// --- a request that cannot be shown yet ----------------------------------------------------------

TEST_F(BreathingTest, WithoutPermissionIsNotWrittenAtAll) {
    OpenAndLight();
    session_.SetButtonBreathing(kChat, true);
    EXPECT_EQ(Compose(), AllLit(kNone));
    EXPECT_THAT(calls_, Not(testing::Contains(HasSubstr(", 0xa2, "))));
}

TEST_F(BreathingTest, StartsWhenItIsPermittedLater) {
    OpenAndLight();
    session_.SetButtonBreathing(kChat, true);
    Compose();
    session_.EnableButtonBreathing(kChat, true);
    EXPECT_THAT(Written(), ElementsAre(AllLit(kStart)));
}

TEST_F(BreathingTest, GoesOnWhenThePermissionReturns) {
    OpenBreathing();
    session_.EnableButtonBreathing(kChat, false);
    EXPECT_EQ(Compose(), AllLit(kNone));
    EXPECT_THAT(calls_, Not(testing::Contains(HasSubstr(", 0xa2, "))));
    session_.EnableButtonBreathing(kChat, true);
    EXPECT_EQ(Compose(), AllLit(kKeep));
}

TEST_F(BreathingTest, StartsWhenTheChatButtonIsShown) {
    OpenForBreathing();
    session_.SetButtonVisible(kChat, false);
    session_.SetButtonBreathing(kChat, true);
    EXPECT_THAT(Written(), ElementsAre(kChatHidden, kChatHidden));
    session_.SetButtonVisible(kChat, true);
    EXPECT_THAT(Written(), ElementsAre(AllLit(kStart)));
}

TEST_F(BreathingTest, StartsWhenTheTouchpadIsActivated) {
    OpenForBreathing();
    session_.Activate(2);
    session_.SetButtonBreathing(kChat, true);
    EXPECT_THAT(Written(), ElementsAre(BlankReport(), BlankReport()));
    session_.Activate(vela::kActive);
    EXPECT_THAT(Written(), ElementsAre(AllLit(kStart)));
}

TEST_F(BreathingTest, CanBeTakenBackBeforeItIsShown) {
    OpenForBreathing();
    session_.Activate(2);
    session_.SetButtonBreathing(kChat, true);
    session_.SetButtonBreathing(kChat, false);
    session_.Activate(vela::kActive);
    EXPECT_EQ(Compose(), AllLit(kNone));
}

// --- a running breathing -------------------------------------------------------------------------

TEST_F(BreathingTest, OfAHiddenButtonIsWrittenAsNoneAndGoesOnLater) {
    OpenBreathing();
    session_.SetButtonVisible(kChat, false);
    EXPECT_EQ(Compose(), kChatHidden);
    EXPECT_THAT(calls_, testing::Contains(SetValueCall(0xa2, 0)));
    session_.SetButtonVisible(kChat, true);
    EXPECT_EQ(Compose(), AllLit(kKeep));
}

TEST_F(BreathingTest, OfADisabledButtonIsWrittenAsNoneAndGoesOnLater) {
    OpenBreathing();
    session_.EnableButton(kChat, false);
    EXPECT_EQ(Compose(), kChatHidden);
    session_.EnableButton(kChat, true);
    EXPECT_EQ(Compose(), AllLit(kKeep));
}

TEST_F(BreathingTest, OutlivesAnInactiveState) {
    OpenBreathing();
    session_.Activate(3);
    session_.Activate(vela::kActiveHostSetsLights);
    EXPECT_THAT(Written(), ElementsAre(BlankReport(), AllLit(kKeep)));
}

TEST_F(BreathingTest, EndsWithTheSession) {
    OpenBreathing();
    session_.Uninitialize();
    ASSERT_EQ(OpenSession(), vela::kHidOpen);
    session_.Enable(true);
    session_.Activate(vela::kActive);
    for (std::uint32_t button = 0; button < 4; ++button) {
        session_.EnableButton(button, true);
        session_.SetButtonVisible(button, true);
    }
    session_.EnableButtonBreathing(kChat, true);
    EXPECT_EQ(Compose(), AllLit(kNone));
}

// --- failures ------------------------------------------------------------------------------------

TEST_F(BreathingTest, CountsAsStartedEvenWhenItsValueCannotBeSet) {
    OpenForBreathing();
    machine_.FailNext("HidP_SetUsageValue", Fault::Status(static_cast<std::int32_t>(0xC0110004)),
                      5);
    session_.SetButtonBreathing(kChat, true);
    EXPECT_THAT(Written(), ElementsAre(AllLit(kNone)));
    EXPECT_EQ(Compose(), AllLit(kKeep));
    EXPECT_THAT(LogOf("UpdateLedCtrl"),
                ElementsAre("ERROR UpdateLedCtrl: HidP_SetUsageValue failed, status : "
                            "-1072627708"));
}

TEST_F(BreathingTest, IsStillToBeStartedWhenTheChatLightCouldNotBeSet) {
    OpenForBreathing();
    machine_.FailNext("HidP_SetUsageValue", Fault::Status(static_cast<std::int32_t>(0xC0110004)),
                      4);
    session_.SetButtonBreathing(kChat, true);
    EXPECT_THAT(
        Written(),
        ElementsAre(LightReport("camera off 3, microphone off 3, share screen 3; all active")));
    EXPECT_EQ(Compose(), AllLit(kStart));
}

TEST_F(BreathingTest, AStopThatComesWhileItIsBeingStartedStays) {
    OpenForBreathing();
    // Another thread stops the breathing while the report that starts it is composed.
    std::thread stopping;
    machine_.SetFaultPolicy([&](const simulator::Call& call) -> std::optional<Fault> {
        if (call.Text() == SetValueCall(0xa2, kStart) && !stopping.joinable()) {
            stopping = std::thread([this] { session_.SetButtonBreathing(kChat, false); });
            EXPECT_TRUE(log_.WaitForLine("SetButtonBreathing for BUTTON_ID 2 (0)"));
        }
        return std::nullopt;
    });
    session_.SetButtonBreathing(kChat, true);
    ASSERT_TRUE(stopping.joinable());
    stopping.join();
    machine_.SetFaultPolicy(nullptr);
    EXPECT_THAT(Written(), ElementsAre(AllLit(kStart), AllLit(kNone)));
    EXPECT_EQ(Compose(), AllLit(kNone));
}

TEST_F(BreathingTest, OfAnotherButtonLeavesTheChatLightAsItIs) {
    OpenAndLight();
    for (const std::uint32_t button : {0U, 1U, 3U}) {
        session_.EnableButtonBreathing(button, true);
        session_.SetButtonBreathing(button, true);
    }
    EXPECT_THAT(Written(), testing::Each(AllLit(kNone)));
    EXPECT_EQ(Compose(), AllLit(kNone));
}

}  // namespace
