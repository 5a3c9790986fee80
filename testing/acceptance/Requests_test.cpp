// Which requests reach which devices: a scan sends none at all, a session only to its own touchpad.
#include "testing/acceptance/FurtherDevice.h"
#include "testing/acceptance/TouchpadAcceptanceTest.h"
#include "testing/kit/windows/Lights.h"
#include "testing/kit/windows/RequestsDuring.h"

namespace acceptance {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;
using testing::Pair;
using virtual_touchpad::HapticLayout;
using virtual_touchpad::Requests;
using virtual_touchpad::SettingsOf;
using virtual_touchpad::VirtualDevice;

TouchpadLayout OfAnotherVendor() {
    TouchpadLayout layout;
    layout.vendorId = 0x1A2B;
    return layout;
}

TouchpadLayout OfAnotherUsagePage() {
    TouchpadLayout layout;
    layout.usagePage = 0xFF81;
    return layout;
}

// The machine has strangers that are enumerated before and after the touchpad, and a haptic one.
class RequestsTest : public TouchpadAcceptanceTest {
 protected:
    template <typename Function>
    Requests RequestsToTouchpad(Function function) {
        return RequestsDuring({&Touchpad().Device()}, function).front();
    }
    std::vector<const VirtualDevice*> Strangers() {
        return {&vendor_.Device(), &page_.Device(), &haptic_.Device()};
    }
    std::vector<const VirtualDevice*> AllDevices() {
        std::vector<const VirtualDevice*> devices = Strangers();
        devices.push_back(&Touchpad().Device());
        return devices;
    }

    FurtherDevice haptic_{L"a-haptic", SettingsOf(HapticLayout{})};
    FurtherDevice vendor_{L"b-vendor", OfAnotherVendor()};
    FurtherDevice page_{L"z-page", OfAnotherUsagePage()};
};

TEST_F(RequestsTest, AScanThatFindsNothingSendsNone) {
    EXPECT_THAT(RequestsDuring(Strangers(),
                               [&] {
                                   EXPECT_EQ(agent_.IsVelaPresent(), 0);
                                   EXPECT_EQ(agent_.Init(), VELA_INIT_NOT_FOUND);
                               }),
                Each(IsEmpty()));
}

TEST_F(RequestsTest, AScanThatFindsTheTouchpadSendsNone) {
    Plug();
    EXPECT_THAT(RequestsDuring(AllDevices(),
                               [&] {
                                   EXPECT_EQ(agent_.IsVelaPresent(), 1);
                                   EXPECT_EQ(agent_.IsHapticTPPresent(), 1);
                                   EXPECT_EQ(agent_.InitHapticTP(), 1);
                                   EXPECT_EQ(agent_.UnInitHapticTP(), 1);
                               }),
                Each(IsEmpty()));
}

TEST_F(RequestsTest, ASessionSendsThemToItsTouchpadOnly) {
    Plug();
    EXPECT_THAT(RequestsDuring(Strangers(),
                               [&] {
                                   ASSERT_NO_FATAL_FAILURE(Open());
                                   LightAll();
                                   EXPECT_TRUE(WaitForLights(AllFourLit));
                                   EXPECT_EQ(agent_.IsDetachable(), 0);
                                   EXPECT_EQ(agent_.SetClickMode(1, 300), 1);
                                   EXPECT_EQ(agent_.IsVelaPresent(), 1);
                                   EXPECT_EQ(agent_.UnInit(), 1);
                               }),
                Each(IsEmpty()));
}

// --- what the touchpad receives ------------------------------------------------------------------

TEST_F(RequestsTest, TheTouchpadIsQueriedOnceForItsName) {
    Plug();
    EXPECT_THAT(RequestsToTouchpad([&] { ASSERT_NO_FATAL_FAILURE(Open()); }), IsEmpty());
    EXPECT_EQ(RequestsToTouchpad([&] { EXPECT_EQ(agent_.IsDetachable(), 0); }),
              (Requests{{"string", 1}}));
    EXPECT_THAT(RequestsToTouchpad([&] { EXPECT_EQ(agent_.IsDetachable(), 0); }), IsEmpty());
}

TEST_F(RequestsTest, ClosingWritesAtMostFourReports) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    const Requests requests = RequestsToTouchpad([&] { EXPECT_EQ(agent_.UnInit(), 1); });
    EXPECT_THAT(requests, ElementsAre(Pair("output", AllOf(Ge(1U), Le(4U)))));
}

TEST_F(RequestsTest, TheIntensityIsOneReportReadAndOneWritten) {
    const std::vector<const VirtualDevice*> devices{&haptic_.Device()};
    EXPECT_THAT(RequestsDuring(devices, [&] { EXPECT_EQ(agent_.InitHapticTP(), 1); }),
                ElementsAre(IsEmpty()));
    EXPECT_THAT(RequestsDuring(devices, [&] { EXPECT_EQ(agent_.GetHapticTPIntensityLevel(), 0U); }),
                ElementsAre(Requests{{"get feature", 1}}));
    EXPECT_THAT(RequestsDuring(devices, [&] { EXPECT_EQ(agent_.SetHapticTPIntensityLevel(3), 1); }),
                ElementsAre(Requests{{"get feature", 1}, {"set feature", 1}}));
}

struct CallInASession {
    const char* name;
    void (*call)(const AgentDll& agent);
    Requests requests;
};

void PrintTo(const CallInASession& row, std::ostream* stream) { *stream << row.name; }

// The touchpad is lit. The camera's light is off.
class SessionRequestsTest : public RequestsTest,
                            public testing::WithParamInterface<CallInASession> {
 protected:
    // The state request is written behind all reports that the call has queued. It is not counted.
    Requests RequestsOfTheCall() {
        const std::uint64_t since = Touchpad().Device().LastSequence();
        Requests requests = RequestsToTouchpad([&] {
            GetParam().call(agent_);
            EXPECT_EQ(agent_.UpdateVelaState(), 1);
            EXPECT_TRUE(Touchpad().Device().WaitForOutput(virtual_touchpad::IsStateRequest,
                                                          kPatience, since));
        });
        if (--requests["output"] == 0) requests.erase("output");
        return requests;
    }
};

INSTANTIATE_TEST_SUITE_P(
    , SessionRequestsTest,
    testing::Values(
        CallInASession{"InitAgain", [](const AgentDll& agent) { agent.Init(); }, {}},
        CallInASession{"IsVelaPresent", [](const AgentDll& agent) { agent.IsVelaPresent(); }, {}},
        CallInASession{"IsDetachable", [](const AgentDll& agent) { agent.IsDetachable(); }, {}},
        CallInASession{"GetClickMode",
                       [](const AgentDll& agent) { agent.GetClickMode(); },
                       {{"get feature", 1}}},
        CallInASession{"SetClickMode",
                       [](const AgentDll& agent) { agent.SetClickMode(1, 300); },
                       {{"get feature", 1}, {"set feature", 1}}},
        CallInASession{"SetButtonLight",
                       [](const AgentDll& agent) { agent.SetButtonLight(0, 1); },
                       {{"output", 1}}},
        CallInASession{
            "SetButtonLightAsItIs", [](const AgentDll& agent) { agent.SetButtonLight(0, 0); }, {}}),
    [](const auto& test) { return test.param.name; });

TEST_P(SessionRequestsTest, AreAsFewAsDocumented) {
    ASSERT_NO_FATAL_FAILURE(OpenLit());
    EXPECT_EQ(RequestsOfTheCall(), GetParam().requests);
}

}  // namespace
}  // namespace acceptance
