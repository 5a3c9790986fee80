// The conventions of VelaAgent.h about callbacks: their threads, and the effect of setters in them.
#include <set>

#include "testing/acceptance/CallbackConventionsTest.h"

namespace acceptance {
namespace {

using testing::ElementsAre;

std::vector<DWORD> threads;
std::atomic<std::size_t> threadsNoted{0};

void NoteThread() {
    threads.push_back(GetCurrentThreadId());
    ++threadsNoted;
}

TEST_F(CallbackConventionsTest, WhatTheTouchpadReportsComesOnTheReaderThread) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    agent_.SetVelaButtonPressCallback([](std::uint32_t, std::uint32_t) { NoteThread(); });
    agent_.SetVelaStatusChangeCallback([](std::uint32_t) { NoteThread(); });
    for (const std::uint16_t usage : {kCameraButton, kShareScreenButton, kChatButton,
                                      kMicrophoneButton, kGesture, kSync, kDisabled, kEnabled}) {
        Touchpad().SendEvent(static_cast<std::uint16_t>(usage));
    }
    Touchpad().SendFirmwareState(0x80);
    ASSERT_TRUE(WaitUntil([] { return threadsNoted == 9; }));
    EXPECT_EQ(std::set<DWORD>(threads.begin(), threads.end()).size(), 1U);
    EXPECT_NE(threads[0], GetCurrentThreadId());
}

TEST_F(CallbackConventionsTest, InsideEnableFeatureAndUnInitTheyComeOnTheCallingThread) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(OpenDisabled([](std::uint32_t) { NoteThread(); }));
    EXPECT_EQ(agent_.EnableFeature(0), 1);
    EXPECT_THAT(threads, ElementsAre(GetCurrentThreadId()));
    EXPECT_EQ(agent_.UnInit(), 1);
    ASSERT_NO_FATAL_FAILURE(OpenDisabled([](std::uint32_t) { NoteThread(); }));
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_THAT(threads, ElementsAre(GetCurrentThreadId(), GetCurrentThreadId()));
}

// A setter in a callback takes effect at once and for good.
TEST_F(CallbackConventionsTest, WhatACallbackSetsHolds) {
    Plug();
    ASSERT_EQ(agent_.Init(), VELA_INIT_OPEN);
    LightAll(VELA_ACTIVE_HOST_SETS_LIGHTS);
    static std::vector<std::uint32_t> later;
    static std::atomic<std::uint32_t> pressed{0xFFFFFFFF};
    agent_.SetVelaStatusChangeCallback([](std::uint32_t) {
        theAgent->SetVelaStatusChangeCallback(
            [](std::uint32_t status) { later.push_back(status); });
        theAgent->SetVelaButtonPressCallback(
            [](std::uint32_t button, std::uint32_t) { pressed = button; });
        theAgent->SetVelaBrightness(9);
        EXPECT_EQ(theAgent->SetButtonLight(VELA_BUTTON_MICROPHONE, 1), 1);
    });
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS), 1);
    EXPECT_THAT(later, ElementsAre(VELA_ACTIVE_HOST_SETS_LIGHTS));
    Touchpad().Press(kShareScreenButton);
    EXPECT_TRUE(WaitUntil([] { return pressed == VELA_BUTTON_SHARE_SCREEN; }));
    EXPECT_TRUE(WaitForLights([](const Lights& lights) {
        return lights.Brightness(0x26) == 9 && lights.Brightness(0x21) == 9;
    }));
}

TEST_F(CallbackConventionsTest, OneThatIsSetInsideUnInitIsForgottenToo) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(OpenDisabled([](std::uint32_t) {
        theAgent->SetVelaStatusChangeCallback([](std::uint32_t) { NoteThread(); });
    }));
    EXPECT_EQ(agent_.UnInit(), 1);
    ASSERT_EQ(agent_.Init(), VELA_INIT_OPEN);
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
    EXPECT_EQ(threadsNoted, 0U);
}

}  // namespace
}  // namespace acceptance
