// The conventions of VelaAgent.h about results, arguments, threads and the calling order.
// CallbackConventions_test.cpp and LightConventions_test.cpp test those about callbacks and lights.
#include <limits>
#include <thread>

#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"

namespace acceptance {
namespace {

using testing::AnyOf;
using testing::Each;

constexpr VELA_BOOL kSmallest = (std::numeric_limits<VELA_BOOL>::min)();
constexpr VELA_BOOL kTruths[] = {1, -1, 2, 0x100, 0x10000, kSmallest};

class ConventionsTest : public TouchpadAcceptanceTest {
 protected:
    void ExpectLights(const std::string& wanted) {
        if (!WaitForLights([&](const Lights& lights) { return Describe(lights) == wanted; })) {
            EXPECT_EQ(Describe(Touchpad().CurrentLights()), wanted);
        }
    }
    // Calls every function with a result of type VELA_BOOL except UnInit.
    std::vector<VELA_BOOL> BoolResults(VELA_BOOL argument) {
        AgentDll& a = agent_;
        return {a.IsVelaPresent(),
                a.EnableFeature(argument),
                a.IsFeatureEnabled(),
                a.Activate(argument == 0 ? VELA_DEACTIVATED : VELA_ACTIVE),
                a.IsActivated(),
                a.EnableSingleButton(VELA_BUTTON_CHAT, argument),
                a.IsSingleButtonEnabled(VELA_BUTTON_CHAT),
                a.SetButtonVisible(VELA_BUTTON_CHAT, argument),
                a.SetButtonLight(VELA_BUTTON_CAMERA, argument),
                a.EnableChatBreathing(argument),
                a.IsChatBreathingEnabled(),
                a.SetButtonBreathing(VELA_BUTTON_CHAT, argument),
                a.UpdateVelaState(),
                a.IsDetachable(),
                a.IsSupportBiDirectionSwipe(),
                a.IsHapticTPPresent(),
                a.InitHapticTP(),
                a.SetHapticTPIntensityLevel(50),
                a.UnInitHapticTP()};
    }
};

// Convention 2.
TEST_F(ConventionsTest, AResultIs0Or1InAllIts32Bits) {
    EXPECT_THAT(BoolResults(kSmallest), Each(AnyOf(0, 1)));
    Plug();
    EXPECT_THAT(BoolResults(1), Each(AnyOf(0, 1)));
    ASSERT_NO_FATAL_FAILURE(Open());
    for (const VELA_BOOL argument : kTruths) {
        EXPECT_THAT(BoolResults(argument), Each(AnyOf(0, 1))) << argument;
        EXPECT_THAT(BoolResults(0), Each(AnyOf(0, 1)));
    }
    EXPECT_EQ(agent_.UnInit(), 1);
    EXPECT_EQ(agent_.UnInit(), 0);
}

TEST_F(ConventionsTest, AnArgumentIsFalseWhen0AndTrueOtherwise) {
    struct Switch {
        const char* name;
        void (*set)(AgentDll& agent, VELA_BOOL on);
        const char* off;
        const char* on;
    };
    const Switch switches[] = {
        {"EnableFeature", [](AgentDll& a, VELA_BOOL on) { a.EnableFeature(on); }, kAllDark,
         kAllLit},
        {"EnableSingleButton",
         [](AgentDll& a, VELA_BOOL on) { a.EnableSingleButton(VELA_BUTTON_CHAT, on); },
         "camera 3/0 microphone 3/0 chat 0 share screen 3, active 124, breathing 0", kAllLit},
        {"SetButtonVisible",
         [](AgentDll& a, VELA_BOOL on) { a.SetButtonVisible(VELA_BUTTON_CHAT, on); },
         "camera 3/0 microphone 3/0 chat 0 share screen 3, active 124, breathing 0", kAllLit},
        {"SetButtonLight",
         [](AgentDll& a, VELA_BOOL on) { a.SetButtonLight(VELA_BUTTON_CAMERA, on); }, kAllLit,
         "camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0"},
    };
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    for (const Switch& test : switches) {
        for (const VELA_BOOL on : kTruths) {
            SCOPED_TRACE(std::string(test.name) + " " + std::to_string(on));
            test.set(agent_, 0);
            ExpectLights(test.off);
            test.set(agent_, on);
            ExpectLights(test.on);
        }
        test.set(agent_, std::string(test.name) == "SetButtonLight" ? 0 : 1);
    }
    for (const VELA_BOOL on : kTruths) {
        SCOPED_TRACE(on);
        EXPECT_EQ(agent_.EnableChatBreathing(on), 1);
        EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, on), 1);
        ExpectLights("camera 3/0 microphone 3/0 chat 3 share screen 3, active 1234, breathing 8");
        EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 0), 1);
        ExpectLights(kAllLit);
    }
}

// Convention 3.
TEST_F(ConventionsTest, OneThreadMayOpenTheNextUseItAndAThirdClose) {
    Plug();
    std::thread([this] { ASSERT_NO_FATAL_FAILURE(Open()); }).join();
    std::thread([this] { LightAll(); }).join();
    EXPECT_TRUE(WaitForLights(AllFourLit));
    std::thread([this] { EXPECT_EQ(agent_.UnInit(), 1); }).join();
    EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
}

// Convention 4. The second round omits the optional calls.
TEST_F(ConventionsTest, TheCallingOrderMayBeRepeated) {
    agent_.UnInitLogger();  // the fixture's, which leaves a first line
    Plug();
    for (const bool isFull : {true, false, true}) {
        if (isFull) {
            agent_.InitLogger(log_.Path().c_str());
            EXPECT_EQ(agent_.IsVelaPresent(), 1);
        }
        ASSERT_NO_FATAL_FAILURE(Open());
        EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 1);
        EXPECT_EQ(agent_.EnableFeature(1), 1);
        agent_.SetVelaBrightness(isFull ? 3 : 9);
        EXPECT_EQ(agent_.SetClickMode(VELA_CLICK_MODE_ON, 300), 1);
        EXPECT_EQ(agent_.UpdateVelaState(), 1);
        for (std::uint32_t button = 4; button-- > 0;) {
            EXPECT_EQ(agent_.SetButtonVisible(button, 1), 1);
            EXPECT_EQ(agent_.EnableSingleButton(button, 1), 1);
        }
        ExpectLights(isFull ? kAllLit
                            : "camera 9/0 microphone 9/0 chat 9 share screen 9, active 1234, "
                              "breathing 0");
        EXPECT_EQ(agent_.UnInit(), 1);
        EXPECT_TRUE(AllDark(Touchpad().CurrentLights()));
        if (isFull) agent_.UnInitLogger();
    }
    EXPECT_EQ(log_.CountLines("{INFO @ Activate} Activate HID (0)"), 2U);
    EXPECT_EQ(log_.CountLines("{INFO @ UnInitialize} Logger::UnInitialize"), 3U);
}

// Convention 6: most calls without a session report it only by their false result.
TEST_F(ConventionsTest, CallsWithoutASessionLeaveNoLine) {
    EXPECT_EQ(agent_.EnableFeature(1), 0);
    EXPECT_EQ(agent_.Activate(VELA_ACTIVE), 0);
    EXPECT_EQ(agent_.EnableSingleButton(VELA_BUTTON_CHAT, 1), 0);
    EXPECT_EQ(agent_.SetButtonVisible(VELA_BUTTON_CHAT, 1), 0);
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 0);
    EXPECT_EQ(agent_.EnableChatBreathing(1), 0);
    EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 1), 0);
    EXPECT_EQ(agent_.SetClickMode(VELA_CLICK_MODE_ON, 300), 0);
    EXPECT_EQ(agent_.GetClickMode(), 0U);
    EXPECT_EQ(agent_.UpdateVelaState(), 0);
    EXPECT_EQ(agent_.IsSupportBiDirectionSwipe(), 0);
    agent_.UnInitLogger();
    EXPECT_THAT(log_.Lines(), testing::ElementsAre("{INFO @ UnInitialize} Logger::UnInitialize"));
}

}  // namespace
}  // namespace acceptance
