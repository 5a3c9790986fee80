// The conventions of VelaAgent.h about lights: the order of their reports, the dark end, and
// changes while the touchpad is disabled.
#include <atomic>
#include <thread>

#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

class LightConventionsTest : public TouchpadAcceptanceTest {};

// Convention 8.
TEST_F(LightConventionsTest, LightReportsOfTwoThreadsAreQueuedInTheOrderOfTheirCalls) {
    constexpr std::uint32_t kCalls = 40;
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    const std::uint64_t before = Touchpad().Device().LastSequence();
    std::atomic<std::uint32_t> turn{0};
    const auto callEverySecondTime = [&](std::uint32_t own) {
        for (std::uint32_t call = own; call < kCalls; call += 2) {
            while (turn != call) std::this_thread::yield();
            agent_.SetVelaBrightness(10 + call);
            ++turn;
        }
    };
    std::thread host(callEverySecondTime, 1);
    callEverySecondTime(0);
    host.join();
    const auto outputs = Touchpad().Device().WaitForOutputs(kCalls, kPatience, before);
    ASSERT_EQ(outputs.size(), kCalls);
    for (std::uint32_t call = 0; call < kCalls; ++call) {
        const Lights lights = virtual_touchpad::DecodeLights(outputs[call].bytes, {});
        EXPECT_EQ(lights.Brightness(0x24), 10 + call);
    }
}

TEST_F(LightConventionsTest, AfterUnInitTheLightsAreDarkWhateverWasStillQueued) {
    for (int round = 0; round < 5; ++round) {
        if (round == 0) Plug();
        ASSERT_NO_FATAL_FAILURE(Open());
        LightAll();
        Touchpad().Device().HoldWrites(true);
        std::vector<std::thread> hosts;
        for (std::uint32_t button = 0; button < 4; ++button) {
            hosts.emplace_back([this, button] {
                for (const VELA_BOOL on : {0, 1}) agent_.SetButtonVisible(button, on);
            });
        }
        const std::string closing =
            "{INFO @ Uninitialize} ================= Uninitialize starts. =================";
        const std::size_t before = log_.CountLines(closing);
        std::thread closer([this] { EXPECT_EQ(agent_.UnInit(), 1); });
        EXPECT_TRUE(log_.WaitForLine(closing, before + 1));
        Touchpad().Device().HoldWrites(false);
        closer.join();
        EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
        for (std::thread& host : hosts) host.join();
        EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
    }
}

// Convention 9.
struct Disable {
    const char* name;
    void (*begin)(TouchpadControl& touchpad);
    const char* status;
    void (*end)(TouchpadControl& touchpad);
    bool endQueuesAReport;  // and stops the breathing
};

class DisabledTouchpadTest : public LightConventionsTest,
                             public testing::WithParamInterface<Disable> {};

const Disable kDisables[] = {
    {"Temporarily", [](TouchpadControl& pad) { pad.SendEvent(kGesture); }, "status 2",
     [](TouchpadControl& pad) { pad.SendEvent(kSync); }, true},
    {"ByItsSwitch", [](TouchpadControl& pad) { pad.SendEvent(kDisabled); }, "status 3",
     [](TouchpadControl& pad) { pad.SendEvent(kEnabled); }, true},
    {"ByItsFirmware", [](TouchpadControl& pad) { pad.SendFirmwareState(0x80); }, "status 3",
     [](TouchpadControl& pad) { pad.SendFirmwareState(0); }, false},
};

INSTANTIATE_TEST_SUITE_P(, DisabledTouchpadTest, testing::ValuesIn(kDisables),
                         [](const auto& test) { return test.param.name; });

TEST_P(DisabledTouchpadTest, ChangesReturn1AndAreShownByTheFirstLightReportAfterwards) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    GetParam().begin(Touchpad());
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_EQ(HostCallbacks::Calls().back(), GetParam().status);
    const std::uint64_t before = Touchpad().Device().LastSequence();
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    EXPECT_EQ(agent_.SetButtonVisible(VELA_BUTTON_CHAT, 0), 1);
    EXPECT_EQ(agent_.EnableSingleButton(VELA_BUTTON_SHARE_SCREEN, 0), 1);
    agent_.SetVelaBrightness(9);
    GetParam().end(Touchpad());
    ASSERT_TRUE(HostCallbacks::WaitForCalls(3));
    EXPECT_EQ(HostCallbacks::Calls().back(), "status 0");
    if (!GetParam().endQueuesAReport) {
        EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    }
    const auto report =
        Touchpad().Device().WaitForOutput(virtual_touchpad::IsLightReport, kPatience, before);
    ASSERT_TRUE(report);
    EXPECT_EQ(Describe(virtual_touchpad::DecodeLights(report->bytes, {})),
              "camera 0/9 microphone 9/0 chat 0 share screen 0, active 14, breathing 0");
}

TEST_F(LightConventionsTest, AChangeBackToTheLightsFromBeforeMayNeedABreathing) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    Touchpad().SendEvent(kGesture);
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    Touchpad().SendEvent(kSync);
    ASSERT_TRUE(WaitForLights([](const Lights& lights) { return lights.Brightness(0x21) == 0; }));
    const std::uint64_t before = Touchpad().Device().LastSequence();
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 0), 1);
    EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CAMERA, 0), 1);
    EXPECT_EQ(agent_.UpdateVelaState(), 1);
    const auto outputs = Touchpad().Device().WaitForOutputs(2, kPatience, before);
    ASSERT_EQ(outputs.size(), 2U);
    EXPECT_EQ(Describe(virtual_touchpad::DecodeLights(outputs[0].bytes, {})), kAllLit);
    EXPECT_FALSE(virtual_touchpad::IsLightReport(outputs[1]));
}

// Breathing is the one change that an event ending the disable may discard.
TEST_P(DisabledTouchpadTest, BreathingThatIsStartedMeanwhileIsStoppedByAnEventThatEndsIt) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    GetParam().begin(Touchpad());
    ASSERT_TRUE(HostCallbacks::WaitForCalls(2));
    EXPECT_EQ(agent_.EnableChatBreathing(1), 1);
    EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 1), 1);
    GetParam().end(Touchpad());
    ASSERT_TRUE(HostCallbacks::WaitForCalls(3));
    agent_.SetVelaBrightness(9);
    // The event may still be in progress: its callback comes before its light report.
    EXPECT_TRUE(WaitForLights([](const Lights& lights) {
        return lights.Brightness(0x24) == 9 &&
               (lights.breathing == 0) == GetParam().endQueuesAReport;
    }));
}

}  // namespace
}  // namespace acceptance
