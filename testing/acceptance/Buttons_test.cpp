// The exports that set a button or a light, checked by the touchpad's lights.
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::ElementsAre;

class ButtonsTest : public TouchpadAcceptanceTest {
 protected:
    // Opens a new session with all four buttons lit.
    void OpenAnew() {
        ASSERT_NO_FATAL_FAILURE(Open());
        agent_.SetVelaBrightness(3);
        LightAll();
        ASSERT_EQ(LightsNow(), kAllLit);
    }

    // Returns the lights once every report queued before is written: a state request is the last.
    std::string LightsNow() {
        const std::uint64_t before = Touchpad().Device().LastSequence();
        EXPECT_EQ(agent_.UpdateVelaState(), 1);
        EXPECT_TRUE(
            Touchpad().Device().WaitForOutput(virtual_touchpad::IsStateRequest, kPatience, before));
        return Describe(Touchpad().CurrentLights());
    }
};

struct LightCall {
    const char* name;
    void (*call)(AgentDll& agent);
    std::string lights;  // all four were lit before
};

struct Group {
    const char* name;
    std::vector<LightCall> calls;
};

void PrintTo(const Group& group, std::ostream* stream) { *stream << group.name; }

const Group kGroups[] = {
    {"Lights",
     {
         {"camera on", [](AgentDll& a) { a.SetButtonLight(VELA_BUTTON_CAMERA, 1); },
          "camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0"},
         {"camera on, said otherwise",
          [](AgentDll& a) { a.SetButtonLight(VELA_BUTTON_CAMERA, -256); },
          "camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0"},
         {"microphone on", [](AgentDll& a) { a.SetButtonLight(VELA_BUTTON_MICROPHONE, 1); },
          "camera 3/0 microphone 0/3 chat 3 share screen 3, active 1234, breathing 0"},
         {"chat on", [](AgentDll& a) { a.SetButtonLight(VELA_BUTTON_CHAT, 1); }, kAllLit},
         {"share screen on", [](AgentDll& a) { a.SetButtonLight(VELA_BUTTON_SHARE_SCREEN, 1); },
          kAllLit},
         {"both on and one off",
          [](AgentDll& a) {
              a.SetButtonLight(VELA_BUTTON_CAMERA, 1);
              a.SetButtonLight(VELA_BUTTON_MICROPHONE, 1);
              a.SetButtonLight(VELA_BUTTON_CAMERA, 0);
          },
          "camera 3/0 microphone 0/3 chat 3 share screen 3, active 1234, breathing 0"},
     }},
    {"Visibility",
     {
         {"camera invisible", [](AgentDll& a) { a.SetButtonVisible(VELA_BUTTON_CAMERA, 0); },
          "camera 0/0 microphone 3/0 chat 3 share screen 3, active 234, breathing 0"},
         {"microphone invisible",
          [](AgentDll& a) { a.SetButtonVisible(VELA_BUTTON_MICROPHONE, 0); },
          "camera 3/0 microphone 0/0 chat 3 share screen 3, active 123, breathing 0"},
         {"chat invisible", [](AgentDll& a) { a.SetButtonVisible(VELA_BUTTON_CHAT, 0); },
          "camera 3/0 microphone 3/0 chat 0 share screen 3, active 124, breathing 0"},
         {"share screen invisible",
          [](AgentDll& a) { a.SetButtonVisible(VELA_BUTTON_SHARE_SCREEN, 0); },
          "camera 3/0 microphone 3/0 chat 3 share screen 0, active 134, breathing 0"},
         {"camera disabled", [](AgentDll& a) { a.EnableSingleButton(VELA_BUTTON_CAMERA, 0); },
          "camera 0/0 microphone 3/0 chat 3 share screen 3, active 234, breathing 0"},
         {"microphone disabled",
          [](AgentDll& a) { a.EnableSingleButton(VELA_BUTTON_MICROPHONE, 0); },
          "camera 3/0 microphone 0/0 chat 3 share screen 3, active 123, breathing 0"},
         {"chat disabled", [](AgentDll& a) { a.EnableSingleButton(VELA_BUTTON_CHAT, 0); },
          "camera 3/0 microphone 3/0 chat 0 share screen 3, active 124, breathing 0"},
         {"share screen disabled",
          [](AgentDll& a) { a.EnableSingleButton(VELA_BUTTON_SHARE_SCREEN, 0); },
          "camera 3/0 microphone 3/0 chat 3 share screen 0, active 134, breathing 0"},
         {"what was set while invisible shows afterwards",
          [](AgentDll& a) {
              a.SetButtonVisible(VELA_BUTTON_CAMERA, 0);
              a.SetButtonLight(VELA_BUTTON_CAMERA, 1);
              a.SetButtonVisible(VELA_BUTTON_CAMERA, 2);
          },
          "camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0"},
         {"a button that is none",
          [](AgentDll& a) {
              a.EnableSingleButton(7, 1);
              a.SetButtonVisible(7, 1);
              a.SetButtonLight(7, 1);
              a.SetButtonBreathing(7, 1);
          },
          kAllLit},
     }},
    {"Brightness",
     {
         {"brightness 1", [](AgentDll& a) { a.SetVelaBrightness(1); },
          "camera 1/0 microphone 1/0 chat 1 share screen 1, active 1234, breathing 0"},
         {"brightness 255",
          [](AgentDll& a) {
              a.SetVelaBrightness(255);
              a.SetButtonLight(VELA_BUTTON_MICROPHONE, 1);
          },
          "camera 255/0 microphone 0/255 chat 255 share screen 255, active 1234, breathing 0"},
         {"brightness 0 is dark but active", [](AgentDll& a) { a.SetVelaBrightness(0); },
          "camera 0/0 microphone 0/0 chat 0 share screen 0, active 1234, breathing 0"},
         {"of the brightness the low byte",
          [](AgentDll& a) { a.SetVelaBrightness(0xFFFFFF00 + 44); },
          "camera 44/0 microphone 44/0 chat 44 share screen 44, active 1234, breathing 0"},
     }},
    {"Activation",
     {
         {"feature off", [](AgentDll& a) { a.EnableFeature(0); }, kAllDark},
         {"feature off and on",
          [](AgentDll& a) {
              a.EnableFeature(0);
              a.EnableFeature(4);
          },
          kAllLit},
         {"active, the host sets lights",
          [](AgentDll& a) { a.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS); }, kAllLit},
         {"activation 2", [](AgentDll& a) { a.Activate(2); }, kAllDark},
         {"activation 3", [](AgentDll& a) { a.Activate(3); }, kAllDark},
         {"deactivated", [](AgentDll& a) { a.Activate(VELA_DEACTIVATED); }, kAllDark},
         {"suspended", [](AgentDll& a) { a.Activate(VELA_SUSPENDED); }, kAllDark},
         {"activation of all ones", [](AgentDll& a) { a.Activate(0xFFFFFFFF); }, kAllDark},
         {"activation 2 and back",
          [](AgentDll& a) {
              a.Activate(2);
              a.Activate(VELA_ACTIVE);
          },
          kAllLit},
         {"deactivated and back: nothing is visible",
          [](AgentDll& a) {
              a.Activate(VELA_DEACTIVATED);
              a.Activate(VELA_ACTIVE);
          },
          kAllDark},
         {"suspended and back: as they were",
          [](AgentDll& a) {
              a.SetButtonLight(VELA_BUTTON_CAMERA, 1);
              a.SetButtonVisible(VELA_BUTTON_CHAT, 0);
              a.Activate(VELA_SUSPENDED);
              a.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS);
          },
          "camera 0/3 microphone 3/0 chat 0 share screen 3, active 124, breathing 0"},
     }},
    {"Breathing",
     {
         {"breathing that is not allowed",
          [](AgentDll& a) { a.SetButtonBreathing(VELA_BUTTON_CHAT, 1); }, kAllLit},
         {"breathing that is not asked for", [](AgentDll& a) { a.EnableChatBreathing(1); },
          kAllLit},
         {"breathing of another button",
          [](AgentDll& a) {
              a.EnableChatBreathing(1);
              a.SetButtonBreathing(VELA_BUTTON_CAMERA, 1);
          },
          kAllLit},
         {"breathing starts",
          [](AgentDll& a) {
              a.EnableChatBreathing(1);
              a.SetButtonBreathing(VELA_BUTTON_CHAT, 1);
          },
          "camera 3/0 microphone 3/0 chat 3 share screen 3, active 1234, breathing 8"},
         {"breathing asked for before it is allowed",
          [](AgentDll& a) {
              a.SetButtonBreathing(VELA_BUTTON_CHAT, 1);
              a.EnableChatBreathing(1);
          },
          "camera 3/0 microphone 3/0 chat 3 share screen 3, active 1234, breathing 8"},
         {"breathing goes on",
          [](AgentDll& a) {
              a.EnableChatBreathing(1);
              a.SetButtonBreathing(VELA_BUTTON_CHAT, 1);
              a.SetVelaBrightness(9);
          },
          "camera 9/0 microphone 9/0 chat 9 share screen 9, active 1234, breathing 15"},
         {"breathing stops",
          [](AgentDll& a) {
              a.EnableChatBreathing(1);
              a.SetButtonBreathing(VELA_BUTTON_CHAT, 1);
              a.SetButtonBreathing(VELA_BUTTON_CHAT, 0);
          },
          kAllLit},
         // The new report equals the last unforced one, so the writer drops it.
         {"breathing is forbidden again, unheard",
          [](AgentDll& a) {
              a.EnableChatBreathing(1);
              a.SetButtonBreathing(VELA_BUTTON_CHAT, 1);
              a.EnableChatBreathing(0);
          },
          "camera 3/0 microphone 3/0 chat 3 share screen 3, active 1234, breathing 8"},
         {"breathing is forbidden again after another report",
          [](AgentDll& a) {
              a.EnableChatBreathing(1);
              a.SetButtonBreathing(VELA_BUTTON_CHAT, 1);
              a.SetButtonLight(VELA_BUTTON_CAMERA, 1);
              a.EnableChatBreathing(0);
          },
          "camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0"},
         {"a chat that is not visible does not breathe",
          [](AgentDll& a) {
              a.EnableChatBreathing(1);
              a.SetButtonBreathing(VELA_BUTTON_CHAT, 1);
              a.SetButtonVisible(VELA_BUTTON_CHAT, 0);
          },
          "camera 3/0 microphone 3/0 chat 0 share screen 3, active 124, breathing 0"},
     }},
};

class LightCallsTest : public ButtonsTest, public testing::WithParamInterface<Group> {};

INSTANTIATE_TEST_SUITE_P(, LightCallsTest, testing::ValuesIn(kGroups),
                         [](const auto& test) { return test.param.name; });

TEST_P(LightCallsTest, ShowInTheLights) {
    Plug();
    for (const LightCall& test : GetParam().calls) {
        SCOPED_TRACE(test.name);
        ASSERT_NO_FATAL_FAILURE(OpenAnew());
        test.call(agent_);
        EXPECT_EQ(LightsNow(), test.lights);
        EXPECT_EQ(agent_.UnInit(), 1);
        EXPECT_EQ(Describe(Touchpad().CurrentLights()), kAllDark);
    }
}

// A button shows when the feature is on, the touchpad active, and it is enabled and visible.
TEST_F(ButtonsTest, AnyOneOfTheFourConditionsKeepsItDark) {
    void (*const conditions[])(AgentDll&) = {
        [](AgentDll& a) { a.EnableFeature(1); }, [](AgentDll& a) { a.Activate(VELA_ACTIVE); },
        [](AgentDll& a) { a.EnableSingleButton(VELA_BUTTON_MICROPHONE, 1); },
        [](AgentDll& a) { a.SetButtonVisible(VELA_BUTTON_MICROPHONE, 1); }};
    Plug();
    for (const auto& last : conditions) {
        ASSERT_NO_FATAL_FAILURE(Open());
        for (const auto& condition : conditions) {
            if (condition != last) condition(agent_);
        }
        EXPECT_EQ(LightsNow(), kAllDark);
        last(agent_);
        EXPECT_EQ(LightsNow(),
                  "camera 0/0 microphone 3/0 chat 0 share screen 0, active 4, breathing 0");
        EXPECT_EQ(agent_.UnInit(), 1);
    }
}

TEST_F(ButtonsTest, TheGettersReturnWhatWasSet) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(agent_.GetVelaBrightness(), 3U);
    agent_.SetVelaBrightness(300);
    EXPECT_EQ(agent_.GetVelaBrightness(), 44U);
    for (const VELA_BOOL on : {1, 0, 0x100, 0, -1}) {
        const VELA_BOOL expected = on == 0 ? 0 : 1;
        EXPECT_EQ(agent_.EnableFeature(on), 1);
        EXPECT_EQ(agent_.IsFeatureEnabled(), expected);
        EXPECT_EQ(agent_.EnableChatBreathing(on), 1);
        EXPECT_EQ(agent_.IsChatBreathingEnabled(), expected);
        for (std::uint32_t button = 0; button < 4; ++button) {
            EXPECT_EQ(agent_.EnableSingleButton(button, on), 1);
            EXPECT_EQ(agent_.IsSingleButtonEnabled(button), expected);
        }
        EXPECT_EQ(agent_.EnableSingleButton(4, on), 1);
        EXPECT_EQ(agent_.IsSingleButtonEnabled(4), 0);
    }
    for (const std::uint32_t activation : {0U, 5U, 1U, 4U, 0U, 2U, 1U, 3U, 0U, 256U}) {
        EXPECT_EQ(agent_.Activate(activation), 1);
        EXPECT_EQ(agent_.IsActivated(), activation <= 1 ? 1 : 0) << activation;
    }
}

// A press switches the button's two lights, leaves them to the host, or changes none.
TEST_F(ButtonsTest, PressesNotifyTheHostAndSwitchTheLightsThatTheLibrarySets) {
    Plug();
    ASSERT_NO_FATAL_FAILURE(OpenAnew());
    const auto pressAll = [this](std::size_t calls) {
        for (const std::uint16_t usage :
             {kCameraButton, kMicrophoneButton, kChatButton, kShareScreenButton}) {
            Touchpad().Press(static_cast<std::uint16_t>(usage));
        }
        EXPECT_TRUE(HostCallbacks::WaitForCalls(calls));
    };
    pressAll(5);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) {
        return Describe(lights) ==
               "camera 0/3 microphone 0/3 chat 3 share screen 3, active 1234, breathing 0";
    }));
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CHAT, 1), 1);
    pressAll(9);
    EXPECT_TRUE(WaitForLights([](const Lights& lights) { return Describe(lights) == kAllLit; }));
    EXPECT_EQ(agent_.EnableSingleButton(VELA_BUTTON_CHAT, 0), 1);
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE_HOST_SETS_LIGHTS), 1);
    pressAll(13);
    EXPECT_EQ(LightsNow(),
              "camera 3/0 microphone 3/0 chat 0 share screen 3, active 124, breathing 0");
    EXPECT_THAT(HostCallbacks::Calls(),
                ElementsAre("status 0", "press 0 1", "press 1 1", "press 2 1", "press 3 1",
                            "press 0 0", "press 1 0", "press 2 0", "press 3 1", "status 1",
                            "press 0 1", "press 1 1", "press 3 1"));
}

}  // namespace
}  // namespace acceptance
