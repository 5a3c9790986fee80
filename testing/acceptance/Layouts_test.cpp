// The known kinds of touchpads, each opened, lit, pressed and closed.
#include "testing/acceptance/VendorFileTest.h"
#include "testing/kit/windows/Lights.h"
#include "testing/virtual-touchpad/descriptor/KnownLayouts.h"

namespace acceptance {
namespace {

using virtual_touchpad::kClickModeReportId;
using virtual_touchpad::Report;

// A touchpad and the features that a host finds on it, besides lights and presses.
struct Touchpad {
    const char* name;
    bool sendsFirmwareState = true;  // not in the second layout, whose enabled event ends a gesture
    bool supportsSwipe = true;
    bool takesRequest = true;
    bool hasClickMode = true;
};

void PrintTo(const Touchpad& touchpad, std::ostream* stream) { *stream << touchpad.name; }

const Touchpad kTouchpads[] = {
    {"Usual"},
    {"OldFirmware"},
    {"RequestInTheSecondLayoutsReport", true, true, false},
    {"WithoutRequest", true, true, false},
    {"WithoutFeatureReports", true, true, true, false},
    {"ActiveUsagesAsArray"},
    {"SecondLayout", false},
    {"SecondLayoutWithOldFirmware", false, false},
    {"BothLayouts", true, false},
    {"BothLayoutsTheSecondFirst", false},
    {"OfAnotherVendor", false},
    {"AsBareAsItGets", false, false, false, false},
};

class LayoutsTest : public VendorFileTest {
 protected:
    void ExpectLights(const std::string& expected) {
        WaitForLights([&](const Lights& lights) { return Describe(lights) == expected; });
        EXPECT_EQ(Describe(Touchpad().CurrentLights()), expected);
    }
    // Ends the log, whose thread writes after the calls return, and returns its error lines.
    std::vector<std::string> ErrorLines() {
        agent_.UnInitLogger();
        std::vector<std::string> errors;
        for (const std::string& line : log_.Lines()) {
            if (line.rfind("{ERROR", 0) == 0) errors.push_back(line);
        }
        return errors;
    }
};

class TouchpadsTest : public LayoutsTest, public testing::WithParamInterface<acceptance::Touchpad> {
 protected:
    void SetUp() override {
        WriteVendorFile("[0488]\r\n[1A2B]\r\n");
        ASSERT_NO_FATAL_FAILURE(OpenLit(virtual_touchpad::LayoutNamed(GetParam().name)));
    }
    void TearDown() override {
        EXPECT_EQ(agent_.UnInit(), 1);
        ExpectLights(kAllDark);
        EXPECT_THAT(ErrorLines(), testing::IsEmpty());
    }
};

INSTANTIATE_TEST_SUITE_P(, TouchpadsTest, testing::ValuesIn(kTouchpads),
                         [](const auto& test) { return test.param.name; });

TEST_P(TouchpadsTest, ShowLightsAndReportPresses) {
    for (const std::uint16_t usage :
         {kCameraButton, kMicrophoneButton, kChatButton, kShareScreenButton}) {
        Touchpad().Press(static_cast<std::uint16_t>(usage));
    }
    std::vector<std::string> calls = {"status 0", "press 0 1", "press 1 1", "press 2 1",
                                      "press 3 1"};
    EXPECT_TRUE(HostCallbacks::WaitForCalls(calls.size()));
    ExpectLights("camera 0/3 microphone 0/3 chat 3 share screen 3, active 1234, breathing 0");

    EXPECT_EQ(agent_.EnableChatBreathing(1), 1);
    EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 1), 1);
    ExpectLights("camera 0/3 microphone 0/3 chat 3 share screen 3, active 1234, breathing 8");
    agent_.SetVelaBrightness(200);
    ExpectLights(
        "camera 0/200 microphone 0/200 chat 200 share screen 200, active 1234, breathing 15");

    Touchpad().SendEvents({kCameraButton, kShareScreenButton, kChatButton, kMicrophoneButton});
    calls.insert(calls.end(), {"press 0 0", "press 3 1", "press 2 1", "press 1 0"});
    EXPECT_TRUE(HostCallbacks::WaitForCalls(calls.size()));
    ExpectLights(
        "camera 200/0 microphone 200/0 chat 200 share screen 200, active 1234, breathing 15");
    EXPECT_EQ(HostCallbacks::Calls(), calls);
}

TEST_P(TouchpadsTest, ReportTheirStatus) {
    std::vector<std::string> calls = {"status 0", "status 2"};
    Touchpad().SendEvent(kGesture);
    EXPECT_TRUE(HostCallbacks::WaitForCalls(calls.size()));
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);  // waits for the end of the gesture

    Touchpad().SendEvent(kEnabled);
    calls.push_back(GetParam().sendsFirmwareState ? "status 2" : "status 0");
    EXPECT_TRUE(HostCallbacks::WaitForCalls(calls.size()));
    ExpectLights(GetParam().sendsFirmwareState
                     ? kAllLit
                     : "camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0");

    Touchpad().SendEvent(kSync);
    Touchpad().SendFirmwareState(0xA0);
    Touchpad().SendFirmwareState(0x20);
    Touchpad().SendEvent(kDisabled);
    Touchpad().SendFirmwareState(0x00);
    Touchpad().SendEvent(kEnabled);
    calls.push_back("status 0");
    if (GetParam().sendsFirmwareState) calls.insert(calls.end(), {"status 3", "status 2"});
    calls.push_back("status 3");
    if (GetParam().sendsFirmwareState) calls.push_back("status 0");
    calls.push_back("status 0");
    EXPECT_TRUE(HostCallbacks::WaitForCalls(calls.size()));
    EXPECT_EQ(HostCallbacks::Calls(), calls);
    ExpectLights("camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0");

    // The last event's own report is queued after its callback; one queued too late would follow
    // the session's last words. The press is reported once it is queued, and the new brightness
    // shows once it is written.
    Touchpad().Press(kShareScreenButton);
    EXPECT_TRUE(HostCallbacks::WaitForCalls(calls.size() + 1));
    agent_.SetVelaBrightness(4);
    ExpectLights("camera 0/4 microphone 4/0 chat 4 share screen 4, active 1234, breathing 0");
}

TEST_P(TouchpadsTest, ReturnTheirProperties) {
    EXPECT_EQ(agent_.IsVelaPresent(), 1);
    EXPECT_EQ(agent_.IsDetachable(), 0);
    EXPECT_EQ(agent_.IsSupportBiDirectionSwipe(), GetParam().supportsSwipe ? 1 : 0);

    const std::uint64_t before = Touchpad().Device().LastSequence();
    EXPECT_EQ(agent_.UpdateVelaState(), GetParam().takesRequest ? 1 : 0);
    EXPECT_EQ(agent_.SetButtonLight(VELA_BUTTON_CAMERA, 1), 1);
    const std::size_t reports = GetParam().takesRequest ? 2 : 1;
    EXPECT_EQ(Touchpad().Device().WaitForOutputs(reports, kPatience, before).size(), reports);
    ExpectLights("camera 0/3 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0");
    EXPECT_EQ(Touchpad().Device().LastSequence(), before + reports);

    const int hasClickMode = GetParam().hasClickMode ? 1 : 0;
    EXPECT_EQ(agent_.SetClickMode(1, 300), hasClickMode);
    EXPECT_EQ(agent_.GetClickMode(), static_cast<std::uint32_t>(hasClickMode));
    if (GetParam().hasClickMode) {
        EXPECT_EQ(Touchpad().Device().Feature(kClickModeReportId).value_or(Report{}),
                  (Report{kClickModeReportId, 0, 0x2C, 0x01, 0}));
    } else {
        agent_.UnInitLogger();
        EXPECT_THAT(log_.Lines(), testing::Not(testing::Contains(testing::HasSubstr("ClickMode"))));
        EXPECT_EQ(Touchpad().Device().State().featureGetCount, 0U);
    }
}

// --- touchpads without one of the lights ---------------------------------------------------------

// The first is HIDP_STATUS_USAGE_NOT_FOUND; a dark report always logs the second.
constexpr char kNotFound[] =
    "{ERROR @ UpdateLedCtrl} HidP_SetUsageValue failed, status : -1072627708";
constexpr char kBlankFailed[] =
    "{ERROR @ UpdateLedCtrl} HidP_SetUsageValue failed, status : 1114112";

struct MissingLight {
    std::uint16_t usage;
    std::string off;  // all lit, the chat breathing
    std::string on;   // camera and microphone on
    std::set<std::string> errors;
};

const MissingLight kMissingLights[] = {
    {0x20,
     "camera 0/0 microphone 3/0 chat 3 share screen 3, active 1234, breathing 8",
     "camera 0/0 microphone 0/3 chat 3 share screen 3, active 1234, breathing 15",
     {}},
    {0x21,
     "camera 0/0 microphone 3/0 chat 3 share screen 3, active 1234, breathing 8",
     "camera 0/3 microphone 0/3 chat 3 share screen 3, active 1234, breathing 15",
     {kBlankFailed, kNotFound}},
    {0x22,
     "camera 3/0 microphone 3/0 chat 3 share screen 0, active 1234, breathing 8",
     "camera 0/3 microphone 0/3 chat 3 share screen 0, active 1234, breathing 15",
     {kNotFound}},
    {0x24,
     "camera 3/0 microphone 3/0 chat 0 share screen 3, active 1234, breathing 0",
     "camera 0/3 microphone 0/3 chat 0 share screen 3, active 1234, breathing 0",
     {kNotFound}},
    {0x26,
     "camera 3/0 microphone 0/0 chat 3 share screen 3, active 1234, breathing 8",
     "camera 0/3 microphone 0/0 chat 3 share screen 3, active 1234, breathing 15",
     {}},
    {0x27,
     "camera 3/0 microphone 0/0 chat 3 share screen 3, active 1234, breathing 8",
     "camera 0/3 microphone 0/3 chat 3 share screen 3, active 1234, breathing 15",
     {kBlankFailed, kNotFound}},
    {0xA2,
     "camera 3/0 microphone 3/0 chat 3 share screen 3, active 1234, breathing 0",
     "camera 0/3 microphone 0/3 chat 3 share screen 3, active 1234, breathing 0",
     {kNotFound}},
};

void PrintTo(const MissingLight& light, std::ostream* stream) { *stream << light.usage; }

class MissingLightTest : public LayoutsTest, public testing::WithParamInterface<MissingLight> {};

INSTANTIATE_TEST_SUITE_P(, MissingLightTest, testing::ValuesIn(kMissingLights),
                         [](const auto& test) {
                             return "Usage" + std::to_string(test.param.usage);
                         });

TEST_P(MissingLightTest, LeavesTheOthersAndThePressesAlone) {
    TouchpadLayout layout;
    layout.missingLightUsages = {GetParam().usage};
    Plug(layout);
    ASSERT_NO_FATAL_FAILURE(Open());
    LightAll();
    EXPECT_EQ(agent_.EnableChatBreathing(1), 1);
    EXPECT_EQ(agent_.SetButtonBreathing(VELA_BUTTON_CHAT, 1), 1);
    ExpectLights(GetParam().off);
    for (const std::uint16_t usage :
         {kCameraButton, kShareScreenButton, kChatButton, kMicrophoneButton}) {
        Touchpad().Press(static_cast<std::uint16_t>(usage));
    }
    EXPECT_TRUE(HostCallbacks::WaitForCalls(5));
    EXPECT_THAT(HostCallbacks::Calls(), testing::ElementsAre("status 0", "press 0 1", "press 3 1",
                                                             "press 2 1", "press 1 1"));
    ExpectLights(GetParam().on);
    EXPECT_EQ(agent_.UnInit(), 1);
    ExpectLights(kAllDark);
    const std::vector<std::string> errors = ErrorLines();
    EXPECT_EQ(std::set<std::string>(errors.begin(), errors.end()), GetParam().errors);
}

}  // namespace
}  // namespace acceptance
